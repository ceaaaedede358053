#pragma once

#include "SurroundSpan.h"

/// \file
/// The static error bound of the floating-point filter: how far the exact contrast of a pixel, which comes from
/// integral images in double precision, may be from the contrast that real numbers would give. It is the product of a
/// factor for the row and one for the column, and some rounding that all pixels share.
///
/// Integral images hold at most 256 per pixel, and an addition rounds by at most 2⁻⁵³ of its result. In units of
/// 257 · 2⁻⁵³, the mean of one channel over a surround is off by no more than the sum of these:
///
/// - the width of the image: a row's running sum is rounded at each of its columns. The columns of the surround count,
///   in each of its rows; per pixel that is as much as there are columns up to it.
/// - the row, plus 1, times the columns up to the surround's last and up to the one before its first, divided by the
///   number of its columns: the sum with the row above is rounded in each row, at these two columns; per pixel that is
///   as much as there are rows up to it.
/// - four times what the greatest of the four corners may hold, divided by the area: the corners are added up in three
///   steps.

namespace vx::kernels {

/// The factor of the columns of the surround; at least 1.
double columnErrorFactor(const SurroundSpan& columns);

/// The factor of row \a y in an image of that size.
double rowErrorFactor(int y, int width, int height);

/// By how much the differences in luma and the two chromas, taken as the length of a vector, may be off, where the
/// product of both factors is \a product.
double lengthError(double product);

/// By how much the squares of such lengths may be off on top of that, through their own rounding.
constexpr double squareRounding = 1e-9;

} // namespace vx::kernels
