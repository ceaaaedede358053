#pragma once

#include "../RowLoops.h"

#include <QImage>

namespace vx::kernels {

/// How the map of the surround contrast is spread, by a maximum filter of this size in pixels: arms of 45.
constexpr int contrastSpread = 90;
/// The level that a pixel of it must exceed to spread.
constexpr int contrastThreshold = 150;

/// Fills \a levels with the contrast of each pixel of \a words, an image of 32 bits per pixel, to its
/// surround; both have the same size.
///
/// The surround of (x, y) in a w × h image spans the columns from max(x - r, 0) to min(x + r, w -
/// 1) with r = min(x, w - x), and the rows likewise. The contrast is the squared distance in luma,
/// red and blue difference, added in this order, between the surround's mean and the pixel smoothed
/// with weights 1, 2, 1 along the row and then along the column, renormalised at the borders.
/// Levels: the contrast above the smallest, truncated, times 255, divided by the truncated range of
/// all contrasts and truncated; 0 everywhere when that range is 0.
///
/// The arithmetic is that of Planes.h: the mean is rectangleSum() of the integral image, divided by
/// the area, and the smoothed value that of smoothSeparably(). Needs 8 bytes of memory per pixel and
/// a few rows.
void surroundContrast(
    const QImage& words, QImage& levels, const RowLoops& loops = fastestRowLoops());

namespace reference {
/// Builds whole planes and integral images.
void surroundContrast(const QImage& words, QImage& levels);
} // namespace reference

} // namespace vx::kernels
