#pragma once

#include <vips/vips8>

#include <QByteArray>
#include <QIODevice>
#include <QImage>
#include <QSize>

#include <optional>

/// \file
/// BMP files, which libvips reads by way of other programs only; Qt has a reader and a writer.

namespace host {

/// Whether \a device has a BMP.
bool isBitmap(QIODevice& device);

/// The size of a BMP in pixels; empty when there is none that can be read.
QSize bitmapSize(QIODevice& device);

/// Decodes a BMP; \a isWhole is false when it ends too early, and what is missing is black. Nothing when
/// it cannot be decoded.
std::optional<vips::VImage> readBitmap(QIODevice& device, bool& isWhole);

/// \a image as a BMP. \throws vips::VError when it is too large for one.
QByteArray encodedBitmap(const QImage& image);

} // namespace host
