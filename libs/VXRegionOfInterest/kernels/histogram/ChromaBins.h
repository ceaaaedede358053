#pragma once

#include "../RowLoops.h"
#include "../image/AlignedArray.h"

#include <QImage>

#include <array>
#include <cstddef>

namespace vx::kernels {

/// The bins of a two-dimensional histogram, row by row; a view that owns nothing.
struct Bins {
    double* values; ///< of all bins
    quint8* emptyRows; ///< for each row, not 0 only if all its values are 0
    int rows; ///< bins of bits 8 to 15
    int columns; ///< bins of bits 0 to 7

    /// The values of a row.
    double* row(int index) const { return values + static_cast<std::ptrdiff_t>(index) * columns; }
};

/// The bins of histograms alike, which are to be counted into first.
class BinTables {
public:
    /// For \a count histograms of so many rows and columns.
    BinTables(int count, int rowCount, int columnCount);

    /// Those of histogram \a index.
    Bins at(int index) const;

private:
    int rows;
    int columns;
    AlignedArray<double> values;
    AlignedArray<quint8> emptyRows;
};

/// Counts indices of bins.
///
/// Neighbours fall into the same bin often, and a count that has just been stored is slow to come back,
/// so each of four pixels has a table of its own.
class BinCounts {
public:
    /// For so many \a rows and \a columns.
    BinCounts(int rows, int columns);

    /// Counts \a count indices: row · columns + column, of bins that exist.
    void add(const quint32* indices, int count);

    /// Writes the counts, finds the empty rows, and begins from 0 again. \pre as many rows and columns.
    void moveInto(const Bins& bins, const RowLoops& loops);

private:
    static constexpr std::size_t tableCount = 4;

    std::size_t stride;
    AlignedArray<qint32> counts;
    std::array<qint32*, tableCount> tables;
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

/// As many histograms as a block's is compared with.
constexpr std::size_t neighbourCount = 4;

/// The chiSquareDistance() to each of \a others; where it is above \a enough, a number that is as well.
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
