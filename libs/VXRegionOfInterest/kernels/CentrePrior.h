#pragma once

#include "loops/RowLoops.h"

#include <QImage>

namespace vx::kernels {

/// Fills \a target, an image of 32 bits per pixel and any size, with the centre prior.
///
/// With (cx, cy) = (width · 0.5, height · 0.5) and d² = (x - cx)² + (y - cy)², the level of pixel
/// (x, y) is exp(d² · (-0.5) / 16900.0) · 255.0 truncated, evaluated in double from left to right,
/// and the pixel is opaque grey.
void centrePrior(QImage& target, const RowLoops& loops = fastestRowLoops());

namespace reference {
/// Evaluates the formula at each pixel.
void centrePrior(QImage& target);
} // namespace reference

} // namespace vx::kernels
