#pragma once

#include "loops/RowLoops.h"

#include <QImage>

/// \file
/// How the library reads and writes pixels: as rows of 32-bit words 0xAARRGGBB.

namespace vx::kernels {

/// Decides, for the whole library, how a picture is read.
/// \return \a image itself, whatever its format, when it has 32 bits per pixel: its words are read
///         as they are. An ARGB32 copy of any other depth. A null image stays null.
QImage toPixelWords(const QImage& image);

/// What QImage::pixel says of each pixel of \a image, as an ARGB32 image. A null image stays null.
QImage toPixelValues(const QImage& image);

/// Whether all pixels of \a words, an image of 32 bits per pixel, are the same word.
bool isOneWord(const QImage& words, const RowLoops& loops = fastestRowLoops());

/// Whether all pixels of \a words, an image of 32 bits per pixel, are opaque black.
bool isOpaqueBlack(const QImage& words);

/// Row \a y of an image of 32 bits per pixel, for reading.
inline const QRgb* wordRow(const QImage& words, int y)
{
    return reinterpret_cast<const QRgb*>(words.constScanLine(y));
}

/// Row \a y of an image of 32 bits per pixel, for writing; nobody else's pixels change.
inline QRgb* writableWordRow(QImage& words, int y)
{
    return reinterpret_cast<QRgb*>(words.scanLine(y));
}

/// An image with the size, the format and all the properties of \a image; its pixels are not written.
QImage sameWithoutPixels(const QImage& image);

/// The bits that a pixel read from or set in an ARGB32 or RGB32 image has, whatever its word holds: in
/// RGB32 all pixels are opaque.
inline QRgb bitsAlwaysSet(const QImage& image)
{
    return image.format() == QImage::Format_RGB32 ? 0xFF000000U : 0;
}

/// Whether an opaque pixel of an image in \a format is the word 0xFFRRGGBB.
inline bool holdsOpaqueWords(QImage::Format format)
{
    return format == QImage::Format_ARGB32 || format == QImage::Format_RGB32
        || format == QImage::Format_ARGB32_Premultiplied;
}

/// Fills a part of an image of any format but palette ones. \pre \a part lies within the image, and \a
/// colour is opaque.
void fillOpaque(const QRect& part, QRgb colour, QImage& image);

constexpr QRgb opaqueBlack = 0xFF000000U;

/// The opaque grey pixel of \a level, which lies between 0 and 255.
inline QRgb opaqueGrey(int level) { return opaqueBlack | static_cast<QRgb>(level) * 0x010101U; }

} // namespace vx::kernels
