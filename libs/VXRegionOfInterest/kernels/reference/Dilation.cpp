#include "../dilation/Dilation.h"

namespace {

void overwriteIfDarker(QImage& result, int x, int y, QRgb pixel)
{
    if (result.valid(x, y) && qRed(result.pixel(x, y)) < qRed(pixel))
        result.setPixel(x, y, pixel);
}

} // namespace

QImage vx::kernels::reference::dilate(const QImage& source, int radius, int threshold)
{
    QImage result = source.copy();
    if (source.pixelFormat().colorModel() == QPixelFormat::Indexed)
        return result; // setPixel would take the colour for an index, refuse it and warn
    for (int y = 0; y < source.height(); ++y) {
        for (int x = 0; x < source.width(); ++x) {
            const QRgb pixel = source.pixel(x, y);
            if (qRed(pixel) <= threshold)
                continue;
            for (int k = -radius; k <= radius; ++k)
                overwriteIfDarker(result, x + k, y, pixel);
            for (int k = -radius; k <= radius; ++k)
                overwriteIfDarker(result, x, y + k, pixel);
        }
    }
    return result;
}
