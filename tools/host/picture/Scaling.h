#pragma once

#include <vips/vips8>

#include <QColor>
#include <QRect>
#include <QSize>

namespace host {

/// A part of \a image scaled to \a size, with its colours, profile and metadata. \pre the image is in memory.
///
/// Images in a format of Qt, see hasQtFormat(), are scaled by Qt, which averages the pixels that merge into one. Others
/// are scaled lazily by libvips with a Lanczos kernel.
vips::VImage scaledTo(const vips::VImage& image, const QRect& part, const QSize& size);

/// \a image padded to \a size: centred, with \a background around it.
vips::VImage padded(const vips::VImage& image, const QSize& size, const QColor& background);

} // namespace host
