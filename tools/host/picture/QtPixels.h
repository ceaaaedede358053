#pragma once

#include <vips/vips8>

#include <QImage>
#include <QRect>

/// \file
/// Between the pictures of libvips and those of Qt.

namespace host {

/// Whether Qt knows the colours of \a image: 8 bits, grey, or as in sRGB with or without opacity.
bool isForQt(const vips::VImage& image);

/// A part of \a image. \pre isForQt(image), which is in memory and outlives the result.
QImage viewOf(const vips::VImage& image, const QRect& part);

/// The pixels of \a image. \pre isForQt(image)
/// \throws vips::VError
QImage toQImage(const vips::VImage& image);

/// A copy of \a image: grey, with colours, or with colours and opacity, 8 bits each. It has its profile, its
/// resolution and its texts.
vips::VImage toVipsImage(const QImage& image);

} // namespace host
