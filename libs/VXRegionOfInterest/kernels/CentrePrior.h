#pragma once

#include "RowLoops.h"

#include <QImage>

namespace vx::kernels {

/// Fills \a levels, of any size, with the centre prior.
///
/// With (cx, cy) = (width · 0.5, height · 0.5) and d² = (x - cx)² + (y - cy)², the level of pixel
/// (x, y) is exp(d² · (-0.5) / 16900.0) · 255.0 truncated, evaluated in double from left to right.
void centrePrior(QImage& levels, const RowLoops& loops = fastestRowLoops());

namespace reference {
/// Evaluates the formula at each pixel.
void centrePrior(QImage& levels);
} // namespace reference

} // namespace vx::kernels
