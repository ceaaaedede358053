#pragma once

#include "loops/RowLoops.h"

#include <QImage>
#include <QList>

namespace vx::kernels {

/// Blends \a maps by \a weights, paired by position, into \a target.
///
/// All images have 32 bits per pixel; \a target may have any size. Level of pixel (x, y): the sum
/// over the maps of red · weight, divided by the sum of the positive weights (of 1 when that sum is
/// 0), truncated toward zero, clamped to 0 to 255, written as opaque grey. Sums, divisor and
/// quotient are signed 32-bit and wrap, so INT_MIN / -1 is INT_MIN. A map is black beyond its own
/// edges, and a missing weight is 0; the divisor counts surplus weights.
void blend(const QList<QImage>& maps, const QList<int>& weights, QImage& target,
    const RowLoops& loops = fastestRowLoops());

/// The steps of blend(), for maps that come one after the other. \a sums holds a sum in place of each
/// pixel's word, and the blended pixels in the end.
/// @{
void beginBlend(
    const QImage& firstMap, int weight, QImage& sums, const RowLoops& loops = fastestRowLoops());
void addToBlend(
    const QImage& map, int weight, QImage& sums, const RowLoops& loops = fastestRowLoops());
void finishBlend(
    const QList<int>& weights, QImage& sums, const RowLoops& loops = fastestRowLoops());
/// @}

namespace reference {
/// Adds and divides pixel by pixel.
void blend(const QList<QImage>& maps, const QList<int>& weights, QImage& target);
} // namespace reference

} // namespace vx::kernels
