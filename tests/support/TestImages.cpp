#include "TestImages.h"

#include "Random.h"

#include <algorithm>

namespace support {

namespace {

constexpr int paddingWords = 5;
constexpr QRgb padding = 0xDEADBEEF;

} // namespace

QImage noise(int width, int height, unsigned seed)
{
    Random random(seed);
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, random.word());
    }
    return image;
}

QImage imageOfReds(int width, const std::vector<int>& reds)
{
    QImage image(width, static_cast<int>(reds.size()) / width, QImage::Format_ARGB32);
    for (int i = 0; i < static_cast<int>(reds.size()); ++i) {
        const int red = reds[static_cast<std::size_t>(i)];
        image.setPixel(i % width, i / width, qRgba(red, 255 - red / 2, 77, 3));
    }
    return image;
}

std::vector<QImage> variedImages(int width, int height, unsigned seed)
{
    Random random(seed);
    QImage flat(width, height, QImage::Format_ARGB32);
    flat.fill(random.word());
    QImage gradient = flat;
    QImage halves = flat;
    QImage fewLevels = flat;
    const QRgb otherColour = random.word();
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            gradient.setPixel(x, y,
                qRgba(255 * x / width, 255 * y / height, 255 * (x + y) / (width + height), x));
            if (2 * x > width)
                halves.setPixel(x, y, otherColour);
            const int level = 51 * random.below(6);
            fewLevels.setPixel(x, y, qRgba(level, random.below(256), 51 * random.below(6), 255));
        }
    }
    return { noise(width, height, seed), flat, gradient, halves, fewLevels };
}

QImage chessboard(int width, int height, int side)
{
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, (x / side + y / side) % 2 == 0 ? 0xFFFFFFFF : 0xFF000000);
    }
    return image;
}

QImage redPixel(int red) { return imageOfReds(1, { red }); }

PaddedImage::PaddedImage(const QImage& image)
    : width(image.width())
    , height(image.height())
    , format(image.format())
    , wordsPerRow(width + paddingWords)
    , words(static_cast<std::size_t>(wordsPerRow * height), padding)
{
    for (int y = 0; y < height; ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        std::copy_n(row, width, words.begin() + y * wordsPerRow);
    }
}

QImage PaddedImage::image() const
{
    return QImage(reinterpret_cast<const uchar*>(words.data()), width, height,
        static_cast<int>(wordsPerRow * static_cast<std::ptrdiff_t>(sizeof(QRgb))), format);
}

bool PaddedImage::paddingIsIntact() const
{
    for (int y = 0; y < height; ++y) {
        const auto end = words.begin() + (y + 1) * wordsPerRow;
        if (std::count(end - paddingWords, end, padding) != paddingWords)
            return false;
    }
    return true;
}

} // namespace support
