#pragma once

#include "../RowLoops.h"

#include <QImage>

namespace vx::kernels {

/// Spreads the pixels of \a source, an ARGB32 or RGB32 image, that have a red value above \a threshold,
/// whatever their colour, over \a result, a copy of it; see maxFilter().
void spreadColours(
    const QImage& source, int arm, int threshold, const RowLoops& loops, QImage& result);

} // namespace vx::kernels
