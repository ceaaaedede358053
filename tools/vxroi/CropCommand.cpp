#include "CropCommand.h"

#include "host/CropWindow.h"
#include "host/PictureReader.h"
#include "host/PictureWriter.h"
#include "host/SalienceMap.h"

#include <iostream>

namespace vxroi {

namespace {

void writeCropped(QImage& picture, const QRect& window, const QString& path)
{
    host::PictureWriter cropped(host::viewOf(picture, window), path);
    cropped.commit();
}

} // namespace

void runCrop(const CropArguments& arguments)
{
    const QString input = QString::fromStdString(arguments.picture);
    const QString output = QString::fromStdString(arguments.output);
    const host::AspectRatio ratio = host::parseAspectRatio(QString::fromStdString(arguments.ratio));
    host::refuseToOverwriteInput(input, output);

    QImage picture = host::readPicture(input);
    const QImage map = host::salienceMapOf(picture);
    const QRect window = host::chooseWindow(map, picture.size(), ratio);

    if (!output.isEmpty())
        writeCropped(picture, window, output);
    std::cout << window.width() << 'x' << window.height() << '+' << window.x() << '+' << window.y()
              << '\n';
}

} // namespace vxroi
