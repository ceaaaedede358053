#pragma once

#include "../RowLoops.h"

#include <QImage>

namespace vx::kernels {

/// What dilate() does to \a source, an ARGB32 or RGB32 image, where pixels above \a threshold may have any colour.
/// \pre \a result is a copy of \a source.
void dilateColours(
    const QImage& source, int radius, int threshold, const RowLoops& loops, QImage& result);

} // namespace vx::kernels
