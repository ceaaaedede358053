#include "Figures.h"

#include "host/HostError.h"
#include "host/picture/PictureWriter.h"

#include <QCoreApplication>
#include <QDir>

#include <iostream>

// vxroi-figures FOLDER: draws the pictures of the docs into a folder.
int main(int argc, char** argv)
try {
    const QCoreApplication application(argc, argv);
    const QDir folder(QCoreApplication::arguments().value(1, QStringLiteral(".")));
    for (const figures::Figure& figure : figures::drawFigures())
        host::PictureWriter(figure.image, folder.filePath(figure.name + QStringLiteral(".jpg")))
            .commit(true);
    return 0;
} catch (const host::HostError& error) {
    std::cerr << "vxroi-figures: " << error.what() << '\n';
    return static_cast<int>(error.code());
}
