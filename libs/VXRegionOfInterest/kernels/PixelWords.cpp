#include "PixelWords.h"

QImage vx::kernels::toPixelWords(const QImage& image)
{
    return image.depth() == 32 ? image : image.convertToFormat(QImage::Format_ARGB32);
}

QImage vx::kernels::toPixelValues(const QImage& image)
{
    QImage values(image.size(), QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        QRgb* const row = writableWordRow(values, y);
        for (int x = 0; x < image.width(); ++x)
            row[x] = image.pixel(x, y);
    }
    return values;
}
