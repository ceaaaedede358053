#pragma once

#include "SurroundSpan.h"

namespace vx::kernels {

// The exact contrast of a pixel comes from integral images in double precision. How far it may be from
// the contrast that real numbers would give is a product for the row and the column, and some rounding
// that both have.
//
// Integral images hold at most 256 per pixel, and a sum is rounded by at most 2⁻⁵³ of itself. As multiples
// of 257 · 2⁻⁵³, the mean of one channel over a surround is off by no more than
//
// - the width: a row's running sum is rounded at each of its columns. Those of the surround count, in each
//   of its rows: per pixel as much as there are columns up to it.
// - the row, plus 1, times the columns up to the surround's last and up to the one before its first,
//   divided by its columns: the sum with the row above is rounded in each row, at these two columns, per
//   pixel as much as there are rows up to it.
// - four times what the greatest of the four corners may hold, divided by the area: they are added up in
//   three steps.

/// The factor that the columns of the surround have; at least 1.
double columnTolerance(const SurroundSpan& columns);

/// The factor that the row has, in an image of that size.
double rowTolerance(int y, int width, int height);

/// How far the three differences of luma and chroma, taken as a length, may be off by where the product of
/// both factors is \a product.
double lengthTolerance(double product);

/// What squares of such lengths may be rounded by, all in all.
constexpr double squareRounding = 1e-9;

} // namespace vx::kernels
