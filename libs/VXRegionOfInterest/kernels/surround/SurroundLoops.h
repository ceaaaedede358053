#pragma once

#include "../image/NumberLoops.h"

#include <QRgb>

#include <cstddef>

/// \file
/// The loops of the surround contrast, and the arrays that they work on; see ContrastEstimates.
///
/// All sums are whole numbers. The surround of the pixel in column x of a row spans the same rows as that of every
/// other pixel of the row; its columns begin at column 0 in the left half of the row, and end at the last one in the
/// right half. From one row of pixels to the next, at most two rows come or go.

namespace vx::kernels {

/// How many numbers loops touch at most before a row and after it. They are read, and overwritten by the rows
/// that follow, but do not count.
constexpr int rowMargin = 16;

/// A row of pixels, packed: red times 2¹⁶ plus blue, and green times 2⁸.
struct PackedRow {
    quint32* redBlue; ///< red in the upper half of a word, blue in the lower
    quint32* green; ///< in the second byte of a word and above
};

/// A packed row, deinterleaved. Before and after the row both are zero.
struct PackedColumns {
    PackedRow even; ///< columns 0, 2, 4 ...
    PackedRow odd; ///< columns 1, 3, 5 ...
};

/// Per-channel prefix sums over one half of the row, restarting at every vector (16 columns or fewer).
struct SurroundSums {
    quint32* red; ///< of red values
    quint32* green; ///< of green values
    quint32* blue; ///< of blue values
    std::ptrdiff_t count; ///< of each channel
};

/// The sums over the surrounds of a row's pixels, and room for the rows that come and go.
struct Surrounds {
    PackedColumns moved; ///< the latest rows that came or went
    SurroundSums
        left; ///< over the columns from 0 on, each sum of two columns more; the last has the whole row
    SurroundSums right; ///< over the columns before a surround, each of two columns more
};

/// Rows smoothed horizontally with weights 1, 2, 1; zero outside the image.
struct SmoothedRows {
    PackedRow above; ///< the row before
    PackedRow here; ///< the row itself
    PackedRow below; ///< the row after
};

/// Factors that take sums to contrasts. W is the sum of the smoothing weights in a direction, n the number of
/// columns or rows of a surround.
struct SurroundScale {
    const double* ofSums; ///< W / n for each column: gives a mean the weight of a smoothed pixel
    const double* ofSquares; ///< 1 / W² for each column: takes that weight out of squares
    double ofSumsInRow; ///< W / n of the row
    double ofSquaresInRow; ///< 1 / W² of the row
};

/// The error bound of estimates in a row: (slope · estimate + offset) · ofColumns[x] + floor.
struct Tolerance {
    const double* ofColumns; ///< a factor for each column
    double slope; ///< grows with the estimate
    double offset; ///< the same for every estimate
    double floor; ///< the same for every column as well
};

/// The loops of the surround contrast.
struct SurroundLoops {
    int runLength; ///< columns after which \ref SurroundSums restart

    /// Smooths a row of pixels horizontally, with weights 1, 2, 1 that are not divided by their sum.
    void (*smoothAlong)(const QRgb* pixels, int width, const PackedRow& target);

    /// Adds two rows of pixels to the sums over surrounds, or subtracts them.
    void (*moveSurrounds)(
        const QRgb* a, const QRgb* b, int width, bool adds, const Surrounds& surrounds);

    /// Writes the squared distance of each smoothed pixel of a row to the mean of its surround, and widens
    /// \a range to include it.
    void (*estimateContrasts)(int width, const Surrounds& surrounds, const SmoothedRows& smoothed,
        const SurroundScale& scale, double* contrasts, Range& range);

    /// Stretches contrasts to grey values: what a contrast exceeds \a least by, truncated, times 255, divided
    /// by \a range, truncated. \pre no result exceeds 255, and \a range is above 0.
    /// \return whether all results stay the same throughout the tolerance.
    bool (*writeLevels)(const double* contrasts, int count, const Tolerance& tolerance,
        double least, int range, quint8* levels);
};

} // namespace vx::kernels
