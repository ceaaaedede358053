#pragma once

#include "../RowLoops.h"

#include <QImage>

/// \file
/// Pixel words: how the library reads and writes pixels, as rows of 32-bit words 0xAARRGGBB.

namespace vx::kernels {

/// Decides, for the whole library, how a picture is read.
/// \return \a image itself, whatever its format, when it has 32 bits per pixel: its words are read
///         as they are. toArgb32() of any other depth. A null image stays null.
QImage toPixelWords(const QImage& image);

/// What QImage::convertToFormat makes of \a image in QImage::Format_ARGB32, converted in this thread. (Qt
/// converts large images in threads of its own, and blocks for ever where the system refuses to start them.) An
/// ARGB32 image shares its pixels. Null for a null image, and for one that no QImage can hold in 32 bits
/// per pixel. \throws std::bad_alloc
QImage toArgb32(const QImage& image);

/// A deep copy of \a image, with all its properties. A null image stays null. \throws std::bad_alloc
QImage copyOf(const QImage& image);

/// A copy of \a image with all its properties, whose pixels are not initialised. \pre \a image is not null.
/// \throws std::bad_alloc
QImage sameWithoutPixels(const QImage& image);

/// Whether \a words, an image of 32 bits per pixel that is not null, is uniform: all pixels are the same word.
bool isUniform(const QImage& words, const RowLoops& loops = fastestRowLoops());

/// Row \a y of an image of 32 bits per pixel, for reading.
inline const QRgb* wordRow(const QImage& words, int y)
{
    return reinterpret_cast<const QRgb*>(words.constScanLine(y));
}

/// Row \a y of an image of 32 bits per pixel, for writing. Images that share its pixels do not change.
inline QRgb* writableWordRow(QImage& words, int y)
{
    return reinterpret_cast<QRgb*>(words.scanLine(y));
}

/// The word of a black pixel that hides what is behind it: alpha 255, and no colour.
constexpr QRgb opaqueBlack = 0xFF000000U;

/// The alpha mask of an ARGB32 or RGB32 image: the bits that are set in every pixel read from or set in it, whatever
/// its words hold. An RGB32 image is opaque throughout.
inline QRgb alphaMaskOf(const QImage& image)
{
    return image.format() == QImage::Format_RGB32 ? opaqueBlack : 0;
}

/// Whether an opaque pixel of an image in \a format is the word 0xFFRRGGBB.
inline bool holdsOpaqueWords(QImage::Format format)
{
    return format == QImage::Format_ARGB32 || format == QImage::Format_RGB32
        || format == QImage::Format_ARGB32_Premultiplied;
}

/// Fills a part of an image of any format but palette ones, given in QPainter's coordinates: on an image
/// with a device pixel ratio of 2, a unit is two pixels. \pre \a part lies within the image, and \a colour is
/// opaque. \throws std::bad_alloc
void fillOpaque(const QRect& part, QRgb colour, QImage& image);

/// Writes the first row of \a words into the rows of \a target from \a first to before \a end. \pre both have
/// 32 bits per pixel and the same width, and \a target has these rows.
void repeatRow(const QImage& words, int first, int end, QImage& target);

/// The opaque grey pixel of \a level, which lies between 0 and 255.
inline QRgb opaqueGrey(int level) { return opaqueBlack | static_cast<QRgb>(level) * 0x010101U; }

} // namespace vx::kernels
