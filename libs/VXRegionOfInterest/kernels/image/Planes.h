#pragma once

#include <QList>

namespace vx::kernels {

/// A plane of real numbers, row by row: value (x, y) has the index y · width + x.
using Plane = QList<double>;

/// At [y][x] the sum of a plane over columns 0 to x and rows 0 to y.
using IntegralImage = QList<QList<double>>;

/// Writes \a plane into \a smoothed, smoothed with \a weights along the rows and then along the columns.
///
/// A value is the sum of the weighted values that lie inside, in order, divided by the sum of their
/// weights. Tap k of -m / 2 to m / 2 has the weight k + m / 2; a tap without a weight is left out.
/// \pre both planes hold at least width · height values.
void smoothSeparably(
    const Plane& plane, int width, int height, const QList<double>& weights, Plane& smoothed);

/// Fills \a integral with the integral image of \a plane: each value is the running sum of its row,
/// plus the value above.
/// \pre the plane holds width · height values, \a integral as many rows and columns.
void integrate(const Plane& plane, int width, int height, IntegralImage& integral);

/// The sum over columns x1 to x2 and rows y1 to y2, both inclusive: value (x2, y2), then plus (x1 -
/// 1, y1 - 1), minus (x2, y1 - 1), minus (x1 - 1, y2), each where it lies inside.
/// x1 and y1 below 0 count as 0. \pre those values exist.
double rectangleSum(const IntegralImage& integral, int x1, int y1, int x2, int y2);

} // namespace vx::kernels
