#pragma once

#include "BytePlane.h"
#include "loops/RowLoops.h"

namespace vx::kernels {

/// Fills \a levels, a plane of any size, with the centre prior.
///
/// With (cx, cy) = (width · 0.5, height · 0.5) and d² = (x - cx)² + (y - cy)², the level of pixel
/// (x, y) is exp(d² · (-0.5) / 16900.0) · 255.0 truncated, evaluated in double from left to right.
void centrePrior(BytePlane& levels, const RowLoops& loops = fastestRowLoops());

namespace reference {
/// Evaluates the formula at each pixel.
void centrePrior(BytePlane& levels);
} // namespace reference

} // namespace vx::kernels
