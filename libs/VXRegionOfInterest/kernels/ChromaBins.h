#pragma once

#include "loops/RowLoops.h"

#include <QImage>

#include <cstddef>

namespace vx::kernels {

/// The bins of a two-dimensional histogram, row by row; a view that owns nothing.
struct Bins {
    double* values;
    quint8* emptyRows; ///< for each row, not 0 only if all its values are 0
    int rows;
    int columns;

    double* row(int index) const { return values + static_cast<std::ptrdiff_t>(index) * columns; }
};

/// Counts the pixels of \a words, an image of 32 bits per pixel, from 0 on, and finds the empty rows.
/// A pixel counts in row (bits 8 to 15) · rows / 256 and column (bits 0 to 7) · columns / 256, in
/// 32-bit arithmetic that wraps; not if its row or column is negative.
void countChroma(const QImage& words, const Bins& bins, const RowLoops& loops = fastestRowLoops());

/// Replaces every value v by (v - min) / (max - min), where min is the smallest value or 1000.0,
/// and max the greatest or 0.0.
void normalizeBins(const Bins& bins, const RowLoops& loops = fastestRowLoops());

/// The sum of (u - v)² / u over the bins of \a own, row by row, where u is neither 0 nor NaN and v
/// is the same bin of \a other, 0 where that has none.
double chiSquareDistance(const Bins& own, const Bins& other);

namespace reference {
/// Divides in 32-bit integers.
void countChroma(const QImage& words, const Bins& bins);
/// Visits bin by bin.
void normalizeBins(const Bins& bins);
/// Visits bin by bin.
double chiSquareDistance(const Bins& own, const Bins& other);
} // namespace reference

} // namespace vx::kernels
