#include "PixelWords.h"

QImage vx::kernels::toPixelWords(const QImage& image)
{
    return image.depth() == 32 ? image : image.convertToFormat(QImage::Format_ARGB32);
}
