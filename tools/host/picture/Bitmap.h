#pragma once

#include <vips/vips8>

#include <QByteArray>
#include <QIODevice>
#include <QImage>
#include <QSize>

#include <optional>

/// \file
/// BMP files, read and written by Qt: libvips can only hand them to another library.

namespace host {

/// Whether the content of \a device begins as a BMP.
bool isBitmap(QIODevice& device);

/// The size of a BMP in pixels; empty when the header cannot be read.
QSize bitmapSize(QIODevice& device);

/// Decodes a BMP. \a isWhole becomes false when the file ends too early; the missing part is black.
/// \return std::nullopt when the BMP cannot be decoded.
std::optional<vips::VImage> readBitmap(QIODevice& device, bool& isWhole);

/// \a image as a BMP file. \throws vips::VError when it is too large for that format.
QByteArray encodedBitmap(const QImage& image);

} // namespace host
