#pragma once

#include <vips/vips8>

#include <QColor>
#include <QRect>
#include <QSize>

namespace host {

/// A part of \a image, which is in memory, at \a size, with its colours, its profile and its metadata.
///
/// What has 8 bits is scaled by Qt, which averages the pixels that a pixel stands for; what has more, or
/// colours that Qt does not know, by libvips with Lanczos' kernel, when it is asked for.
vips::VImage scaledTo(const vips::VImage& image, const QRect& part, const QSize& size);

/// \a image in the middle of a picture of \a size with \a background around it.
vips::VImage padded(const vips::VImage& image, const QSize& size, const QColor& background);

} // namespace host
