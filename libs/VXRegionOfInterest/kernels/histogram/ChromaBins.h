#pragma once

#include "../RowLoops.h"
#include "../image/AlignedArray.h"

#include <QImage>

#include <array>
#include <cstddef>

/// \file
/// Two-dimensional histograms of chroma: counted, normalised, and compared by their chi-square distance.

namespace vx::kernels {

/// The bins of a histogram, row by row; a view that owns nothing.
struct Bins {
    double* values; ///< of all bins
    quint8* emptyRows; ///< for each row, not 0 only if all its values are 0
    int rows; ///< bins of bits 8 to 15
    int columns; ///< bins of bits 0 to 7

    /// The values of a row.
    double* row(int index) const { return values + static_cast<std::ptrdiff_t>(index) * columns; }
};

/// Memory for the bins of histograms of the same shape, not initialised.
class BinTables {
public:
    /// For \a count histograms of so many rows and columns.
    BinTables(int count, int rowCount, int columnCount);

    /// The bins of histogram \a index.
    Bins at(int index) const;

private:
    int rows;
    int columns;
    AlignedArray<double> values;
    AlignedArray<quint8> emptyRows;
};

/// Counts how often each bin occurs in rows of indices.
///
/// Neighbouring pixels often fall into the same bin, and a processor waits to load a count that it has just stored.
/// So four tables take turns, and are added up in the end.
class BinCounts {
public:
    /// For so many \a rows and \a columns.
    BinCounts(int rows, int columns);

    /// Counts \a count indices: row · columns + column, of bins that exist.
    void add(const quint32* indices, int count);

    /// Writes the counts, notes the empty rows, and starts again from 0. \pre \a bins has as many rows and columns.
    void moveInto(const Bins& bins, const RowLoops& loops);

private:
    static constexpr std::size_t tableCount = 4;

    std::size_t stride;
    AlignedArray<qint32> counts;
    std::array<qint32*, tableCount> tables;
};

/// Writes into \a bins how many pixels of \a words, an image of 32 bits per pixel, fall into each, and notes the empty
/// rows. A pixel falls into row (bits 8 to 15) · rows / 256 and column (bits 0 to 7) · columns / 256, in
/// 32-bit arithmetic that wraps; into none if its row or column is negative.
void countChroma(const QImage& words, const Bins& bins, const RowLoops& loops = fastestRowLoops());

/// Replaces every value v by (v - min) / (max - min), where min is the smallest value or 1000.0,
/// and max the greatest or 0.0.
void normalizeBins(const Bins& bins, const RowLoops& loops = fastestRowLoops());

/// The chi-square distance: the sum of (u - v)² / u over the bins of \a own, row by row, where u is neither 0 nor NaN
/// and v is the same bin of \a other, 0 where that has none.
double chiSquareDistance(const Bins& own, const Bins& other);

/// The number of neighbours that a block's histogram is compared with.
constexpr std::size_t neighbourCount = 4;

/// The chiSquareDistance() to each of \a others. Where it is above \a enough, some number that is above it as well.
/// \pre no value of \a own is below 0.
std::array<double, neighbourCount> chiSquareDistances(
    const Bins& own, const std::array<Bins, neighbourCount>& others, double enough);

namespace reference {
/// Divides in 32-bit integers.
void countChroma(const QImage& words, const Bins& bins);
/// Visits bin by bin.
void normalizeBins(const Bins& bins);
/// Visits bin by bin.
double chiSquareDistance(const Bins& own, const Bins& other);
} // namespace reference

} // namespace vx::kernels
