#pragma once

#include <QImage>

#include <cstddef>
#include <vector>

namespace support {

/// An ARGB32 image of random words: every channel and alpha takes every value.
QImage noise(int width, int height, unsigned seed);

/// An ARGB32 image of \a width columns whose red values are \a reds, row by row; the other channels
/// and alpha hold other values, which nobody may read.
QImage imageOfReds(int width, const std::vector<int>& reds);

/// ARGB32 images that methods find easy and hard: noise, one colour, a gradient, two halves of
/// different colour, and few levels, so that equal values are many.
std::vector<QImage> variedImages(int width, int height, unsigned seed);

/// An ARGB32 image of black and white fields that are \a side pixels wide and high.
QImage chessboard(int width, int height, int side);

/// An image with one pixel, whose red value is \a red.
QImage redPixel(int red);

/// A copy of a 32-bit image whose rows lie further apart than its width needs.
class PaddedImage {
public:
    explicit PaddedImage(const QImage& image);

    /// The image over the padded buffer; valid as long as this object.
    QImage image() const;

    /// Whether the bytes between the rows still hold what they were filled with.
    bool paddingIsIntact() const;

private:
    int width;
    int height;
    QImage::Format format;
    std::ptrdiff_t wordsPerRow;
    std::vector<QRgb> words;
};

} // namespace support
