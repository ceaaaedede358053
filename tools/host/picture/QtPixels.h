#pragma once

#include <vips/vips8>

#include <QImage>
#include <QRect>

/// \file
/// Conversions between the images of libvips and those of Qt.

namespace host {

/// Whether Qt has a format for the pixels of \a image: 8 bits per channel; grey, RGB or RGBA.
bool hasQtFormat(const vips::VImage& image);

/// A view of a part of \a image. \pre hasQtFormat(image); the image is in memory and outlives the view.
QImage viewOf(const vips::VImage& image, const QRect& part);

/// \a image as a QImage, without a copy where its pixels are in memory. \pre hasQtFormat(image)
/// \throws vips::VError
QImage toQImage(const vips::VImage& image);

/// A copy of \a image as grey, RGB or RGBA with 8 bits per channel, with its profile, resolution and texts.
vips::VImage toVipsImage(const QImage& image);

} // namespace host
