#include "PixelWords.h"

#include "ImageMemory.h"
#include "PixelLoops.h"

#include <QColorSpace>
#include <QPainter>

#include <algorithm>
#include <new>

namespace {

// Qt converts images of fewer than twice as many bytes, and single rows, without its thread pool.
constexpr int bytesAtOnce = 1 << 16;

// An image with the properties of another, whose pixels are not initialised.
QImage likeImage(const QImage& image, const QSize& size, QImage::Format format)
{
    QImage other = vx::kernels::uninitializedImage(size, format);
    other.setDevicePixelRatio(image.devicePixelRatio());
    other.setDotsPerMeterX(image.dotsPerMeterX());
    other.setDotsPerMeterY(image.dotsPerMeterY());
    other.setOffset(image.offset());
    other.setColorSpace(image.colorSpace());
    for (const QString& key : image.textKeys())
        other.setText(key, image.text(key));
    return other;
}

// What Qt converts RGB32 to, the format of most pictures.
QImage opaqueWordsOf(const QImage& image)
{
    QImage words = likeImage(image, image.size(), QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        const QRgb* const row = vx::kernels::wordRow(image, y);
        std::transform(row, row + image.width(), vx::kernels::writableWordRow(words, y),
            [](QRgb word) { return word | vx::kernels::opaqueBlack; });
    }
    return words;
}

} // namespace

QImage vx::kernels::toPixelWords(const QImage& image)
{
    return image.depth() == 32 ? image : toArgb32(image);
}

QImage vx::kernels::toArgb32(const QImage& image)
{
    if (image.format() == QImage::Format_RGB32)
        return opaqueWordsOf(image);
    const int rowsAtOnce = std::max(1, bytesAtOnce / std::max(1, image.bytesPerLine()));
    if (image.height() <= rowsAtOnce || image.format() == QImage::Format_ARGB32)
        return held(image.convertToFormat(QImage::Format_ARGB32), image.size(), 32);

    QImage words;
    for (int y = 0; y < image.height(); y += rowsAtOnce) {
        QImage band(image.constScanLine(y), image.width(), std::min(rowsAtOnce, image.height() - y),
            image.bytesPerLine(), image.format());
        if (image.colorCount() > 0)
            band.setColorTable(image.colorTable());
        band = held(band.convertToFormat(QImage::Format_ARGB32), image.size(), 32);
        if (band.isNull())
            return QImage();
        if (y == 0)
            words = likeImage(image, image.size(), QImage::Format_ARGB32);
        for (int i = 0; i < band.height(); ++i)
            std::copy_n(wordRow(band, i), band.width(), writableWordRow(words, y + i));
    }
    return words;
}

QImage vx::kernels::copyOf(const QImage& image)
{
    return image.isNull() ? QImage() : held(image.copy(image.rect()), image.size(), image.depth());
}

// A copy of one pixel has all the properties that a copy of the image has.
QImage vx::kernels::sameWithoutPixels(const QImage& image)
{
    return likeImage(
        held(image.copy(0, 0, 1, 1), QSize(1, 1), image.depth()), image.size(), image.format());
}

bool vx::kernels::isUniform(const QImage& words, const RowLoops& loops)
{
    const QRgb first = *wordRow(words, 0);
    for (int y = 0; y < words.height(); ++y) {
        if (!loops.pixels.isUniform(wordRow(words, y), words.width(), first))
            return false;
    }
    return true;
}

void vx::kernels::repeatRow(const QImage& words, int first, int end, QImage& target)
{
    for (int y = first; y < end; ++y)
        std::copy_n(wordRow(words, 0), words.width(), writableWordRow(target, y));
}

void vx::kernels::fillOpaque(const QRect& part, QRgb colour, QImage& image)
{
    // Qt would detach shared pixels as well, but leave a null image where memory runs out.
    if (!image.isDetached())
        image = copyOf(image);
    if (image.bits() == nullptr) // the same, for pixels that may only be read
        throw std::bad_alloc();
    if (holdsOpaqueWords(image.format()) && image.devicePixelRatio() == 1) {
        for (int y = part.top(); y <= part.bottom(); ++y)
            std::fill_n(writableWordRow(image, y) + part.left(), part.width(), colour);
    } else {
        QPainter(&image).fillRect(part, QColor(colour));
    }
}
