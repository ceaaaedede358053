#include "PreviewWindow.h"

#include <QApplication>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    viewer::PreviewWindow window;
    window.resize(960, 720);
    window.show();
    if (QApplication::arguments().size() > 1)
        window.open(QApplication::arguments().at(1));
    return QApplication::exec();
}
