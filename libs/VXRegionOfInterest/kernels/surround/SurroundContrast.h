#pragma once

#include "../RowLoops.h"

#include <QImage>

/// \file
/// The surround contrast, computed through a *floating-point filter*: a cheap approximation with a bound of its error,
/// and an exact fallback for what the approximation leaves uncertain. Exact geometric predicates are evaluated in that
/// way (Fortune and Van Wyk 1996, "Static analysis yields efficient exact integer arithmetic for computational
/// geometry", who gave the filter its name; Shewchuk 1997, "Adaptive Precision Floating-Point Arithmetic and Fast
/// Robust Geometric Predicates").
///
/// Here the question is not the sign of a determinant but into which of 256 grey values a contrast falls, and exact
/// means: to the bit what the stated order of operations in double precision gives.
///
/// | part                | file                  |
/// |---------------------|-----------------------|
/// | the approximation   | FloatingPointFilter.h |
/// | the bound           | FilterErrorBound.h    |
/// | the exact fallback  | ExactContrasts.h      |

namespace vx::kernels {

/// The size of the dilation that follows the surround contrast: the full extent of its cross in pixels, so that its
/// radius is 45.
constexpr int contrastDilationSize = 90;
/// The grey value that a contrast must exceed to be dilated.
constexpr int contrastDilationThreshold = 150;

/// Fills \a greyMap with the contrast of each pixel of \a words, an image of 32 bits per pixel, to its
/// surround; both have the same size. Nothing is written where \a words is null.
///
/// The surround of (x, y) in a w × h image spans the columns from max(x - r, 0) to min(x + r, w -
/// 1) with r = min(x, w - x), and the rows likewise. The contrast is the squared distance in luma,
/// red and blue difference, added in this order, between the surround's mean and the pixel smoothed
/// with weights 1, 2, 1 along the row and then along the column, renormalised at the borders.
/// Grey values: what the contrast exceeds the smallest by, truncated, times 255, divided by the truncated
/// range of all contrasts and truncated; 0 everywhere when that range is 0.
///
/// The arithmetic is that of Planes.h: the mean is rectangleSum() of the integral image, divided by
/// the area, and the smoothed value that of smoothSeparably(). Needs 8 bytes of memory per pixel and
/// a few rows.
void surroundContrast(
    const QImage& words, QImage& greyMap, const RowLoops& loops = fastestRowLoops());

namespace reference {
/// Builds whole planes and integral images.
void surroundContrast(const QImage& words, QImage& greyMap);
} // namespace reference

} // namespace vx::kernels
