#pragma once

#include "../image/NumberLoops.h"

#include <QRgb>

#include <cstddef>

/// \file
/// The loops of the surround contrast, and the arrays that they work on.
///
/// All sums are whole numbers, which are exact in any order. The surrounds of a row's pixels span the same rows; in the
/// left half of the row they begin with column 0, in the right half they end with the last column. From one row of
/// pixels to the next, at most two rows enter or leave the surrounds.

namespace vx::kernels {

/// How many numbers the loops touch at most before a row and after it. These are read, and overwritten by the rows
/// that follow, but do not count.
constexpr int rowMargin = 16;

/// The channels of a row of pixels, packed into two words per pixel.
struct PackedRow {
    quint32* redBlue; ///< red in the upper half of a word, blue in the lower
    quint32* green; ///< in the second byte of a word and above
};

/// A packed row, deinterleaved. Before and after the row both are zero.
struct DeinterleavedRow {
    PackedRow even; ///< columns 0, 2, 4 ...
    PackedRow odd; ///< columns 1, 3, 5 ...
};

/// Per-channel prefix sums over one half of the row, restarting at every vector (16 columns or fewer).
struct PrefixSums {
    quint32* red; ///< of red values
    quint32* green; ///< of green values
    quint32* blue; ///< of blue values
    std::ptrdiff_t count; ///< sums of each channel
};

/// The sums over the surrounds of a row's pixels.
///
/// A surround in the left half has two columns more than the one before it, and the sum of its columns is a prefix sum
/// over pairs. One in the right half has two columns fewer: its sum is that of the whole row less a prefix sum.
struct SurroundSums {
    DeinterleavedRow update; ///< room for the rows that enter or leave
    PrefixSums left; ///< over surrounds in the left half, and last over the whole row
    PrefixSums right; ///< over the columns that surrounds in the right half do not have
};

/// Rows smoothed horizontally with weights 1, 2, 1; zero outside the image.
struct SmoothedRows {
    PackedRow above; ///< the row before
    PackedRow here; ///< the row itself
    PackedRow below; ///< the row after
};

/// Factors that turn sums into contrasts. W is the sum of the smoothing weights along an axis, n the number of
/// columns or rows of a surround.
struct SurroundScale {
    const double* ofSums; ///< W / n for each column: brings a mean to the scale of a smoothed pixel
    const double* ofSquares; ///< 1 / W² for each column: takes that scale out of squares
    double ofSumsInRow; ///< W / n of the row
    double ofSquaresInRow; ///< 1 / W² of the row
};

/// The error bound of the estimates in a row: (slope · estimate + offset) · ofColumns[x] + floor.
struct ErrorBound {
    const double* ofColumns; ///< a factor for each column
    double slope; ///< grows with the estimate
    double offset; ///< the same for every estimate
    double floor; ///< the same for every column as well
};

/// The range of contrasts before any has been seen: every contrast is below 2³⁰ and at least 0.
constexpr Range rangeOfNoContrasts { 1073741824, 0 };

/// The loops of the surround contrast.
struct SurroundLoops {
    int runLength; ///< columns after which \ref PrefixSums restart

    /// Smooths a row of pixels horizontally with weights 1, 2, 1; the sums are not divided.
    void (*smoothAlong)(const QRgb* pixels, int width, const PackedRow& target);

    /// Adds two rows of pixels to the sums over surrounds, or subtracts them.
    void (*updateSums)(
        const QRgb* a, const QRgb* b, int width, bool adds, const SurroundSums& sums);

    /// Writes the squared distance of each smoothed pixel of a row to the mean of its surround, and widens
    /// \a range to include all of them.
    void (*estimateContrasts)(int width, const SurroundSums& sums, const SmoothedRows& smoothed,
        const SurroundScale& scale, double* contrasts, Range& range);

    /// Stretches contrasts to grey values: what a contrast exceeds \a least by, truncated, times 255, divided
    /// by \a range, truncated. \pre no grey value exceeds 255, and \a range is above 0.
    /// \return whether every grey value is the same for all contrasts within the error bound.
    bool (*stretchContrasts)(const double* contrasts, int count, const ErrorBound& bound,
        double least, int range, quint8* greys);
};

} // namespace vx::kernels
