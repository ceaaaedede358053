#include "CommandLine.h"
#include "Interruption.h"

#include <QCoreApplication>
#include <QTextCodec>

#include <malloc.h>

namespace {

// Images of the size that is analysed come from memory that was used before, instead of from the
// system, which clears it page by page: that takes as long as a method does. Larger ones go back to
// the system at once.
void keepMemoryForWorkingImages()
{
    constexpr int megabyte = 1 << 20;
    mallopt(M_MMAP_THRESHOLD, 4 * megabyte);
    mallopt(M_TRIM_THRESHOLD, 16 * megabyte);
    mallopt(M_TOP_PAD, 4 * megabyte);
}

} // namespace

int main(int argc, char** argv)
{
    vxroi::endAtOnceOnSignals();
    keepMemoryForWorkingImages();
    // File names are UTF-8 in every locale, the plain C locale of build scripts included.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    // Qt finds its image format plugins through the application object.
    const QCoreApplication application(argc, argv);
    return static_cast<int>(vxroi::runCommandLine(argc, argv));
}
