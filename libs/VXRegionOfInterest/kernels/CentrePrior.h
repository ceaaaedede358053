#pragma once

#include "RowLoops.h"

#include <QImage>

namespace vx::kernels {

/// Fills \a greyMap, of any size, with the centre prior: a Gaussian around its middle, with a standard deviation of 130
/// pixels.
///
/// With (cx, cy) = (width · 0.5, height · 0.5) and d² = (x - cx)² + (y - cy)², the grey value of pixel
/// (x, y) is exp(d² · (-0.5) / 16900.0) · 255.0 truncated, evaluated in double from left to right.
void centrePrior(QImage& greyMap, const RowLoops& loops = fastestRowLoops());

namespace reference {
/// Evaluates the formula at each pixel.
void centrePrior(QImage& greyMap);
} // namespace reference

} // namespace vx::kernels
