#include "Levels.h"

#include "ImageMemory.h"
#include "PixelWords.h"

QImage vx::kernels::uninitializedLevels(const QSize& size)
{
    return uninitializedImage(size, QImage::Format_Grayscale8);
}

void vx::kernels::writeGrey(const QImage& levels, QImage& map, const RowLoops& loops)
{
    for (int y = 0; y < levels.height(); ++y)
        loops.pixels.writeGrey(levelRow(levels, y), levels.width(), writableWordRow(map, y));
}
