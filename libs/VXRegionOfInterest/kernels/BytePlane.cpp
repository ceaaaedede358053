#include "BytePlane.h"

#include "FreshMemory.h"
#include "PixelWords.h"

vx::kernels::BytePlane vx::kernels::redPlaneOf(const QImage& words, const RowLoops& loops)
{
    BytePlane plane = uninitializedPlane(words.size());
    for (int y = 0; y < words.height(); ++y)
        loops.readReds(wordRow(words, y), words.width(), plane.row(y));
    return plane;
}

QImage vx::kernels::greyImageOf(const BytePlane& levels, const RowLoops& loops)
{
    QImage image = uninitializedImage(QSize(levels.width, levels.height), QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y)
        loops.writeGrey(levels.row(y), levels.width, writableWordRow(image, y));
    return image;
}
