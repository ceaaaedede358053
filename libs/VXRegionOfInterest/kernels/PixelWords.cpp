#include "PixelWords.h"

#include "FreshMemory.h"

#include <QColorSpace>
#include <QPainter>

#include <algorithm>

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

bool vx::kernels::isOneWord(const QImage& words, const RowLoops& loops)
{
    if (words.isNull())
        return true;
    const QRgb first = *wordRow(words, 0);
    for (int y = 0; y < words.height(); ++y) {
        if (!loops.areAll(wordRow(words, y), words.width(), first))
            return false;
    }
    return true;
}

bool vx::kernels::isOpaqueBlack(const QImage& words)
{
    return words.isNull() || (*wordRow(words, 0) == opaqueBlack && isOneWord(words));
}

QImage vx::kernels::sameWithoutPixels(const QImage& image)
{
    QImage same = uninitializedImage(image.size(), image.format());
    same.setDevicePixelRatio(image.devicePixelRatio());
    same.setDotsPerMeterX(image.dotsPerMeterX());
    same.setDotsPerMeterY(image.dotsPerMeterY());
    same.setOffset(image.offset());
    same.setColorSpace(image.colorSpace());
    for (const QString& key : image.textKeys())
        same.setText(key, image.text(key));
    return same;
}

void vx::kernels::fillOpaque(const QRect& part, QRgb colour, QImage& image)
{
    const QImage::Format format = image.format();
    const auto fill = [&](auto pixel) {
        uchar* row = image.scanLine(part.top());
        for (int y = 0; y < part.height(); ++y, row += image.bytesPerLine())
            std::fill_n(reinterpret_cast<decltype(pixel)*>(row) + part.left(), part.width(), pixel);
    };
    if (holdsOpaqueWords(format))
        fill(colour);
    else if (format == QImage::Format_Grayscale8 && image.devicePixelRatio() == 1)
        fill(static_cast<uchar>(qGray(colour)));
    else
        QPainter(&image).fillRect(part, QColor(colour));
}
