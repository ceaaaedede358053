#include "CommandLine.h"

#include <QCoreApplication>
#include <QTextCodec>

int main(int argc, char** argv)
{
    // File names are UTF-8 in every locale, the plain C locale of build scripts included.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    // Qt finds its image format plugins through the application object.
    const QCoreApplication application(argc, argv);
    return static_cast<int>(vxroi::runCommandLine(argc, argv));
}
