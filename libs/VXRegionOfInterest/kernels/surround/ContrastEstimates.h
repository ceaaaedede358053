#pragma once

#include "../RowLoops.h"
#include "../image/AlignedArray.h"
#include "SurroundBuffers.h"

#include <QImage>

#include <array>

namespace vx::kernels {

/// Estimates of the numbers that Contrasts holds, for a fraction of the time.
///
/// Sums of pixels are whole numbers, and so exact in any order, where those of luma and chroma are
/// rounded at every step and have an order. Means of luma and chroma are what becomes of the means of
/// red, green and blue, but for that rounding. It is bounded, and the levels that contrasts are
/// stretched to are few: nearly always all of them are certain.
class ContrastEstimates {
public:
    /// Whether sums of whole surrounds fit into the words that \a loops keep them in: not for images of
    /// more than a quarter of a million rows, or up to a million, depending on the processor.
    static bool canEstimate(const QSize& size, const RowLoops& loops);

    /// Makes them all. \pre \a image has 32 bits per pixel and is not null, and canEstimate() is true.
    ContrastEstimates(const QImage& image, const RowLoops& rowLoops);

    /// The contrasts of row \a y.
    const double* row(int y) const;

    /// How far the estimates in row \a y may be from what Contrasts has there.
    Tolerance tolerance(int y) const;

    /// Fills \a levels with the levels of the contrasts.
    /// \return false if a level is not certain; then \a levels holds nothing of use.
    bool writeLevels(QImage& levels) const;

private:
    static constexpr std::size_t smoothedCount = 3;

    void makeScales();
    void estimate();
    void moveRows(int first, int last, bool adds);
    Surrounds surrounds() const;
    void smoothRow(int y);
    PackedRow smoothedRow(int y) const;
    double greatestLengthTolerance() const;

    const QImage& words;
    const RowLoops& loops;
    const int width;
    const int height;
    AlignedArray<double> values;
    AlignedArray<double> sumScales;
    AlignedArray<double> squareScales;
    AlignedArray<double> columnTolerances;
    AlignedArray<QRgb> noPixels;
    PackedRowBuffer noRow;
    std::array<PackedRowBuffer, smoothedCount> smoothed;
    PackedRowBuffer movedEven;
    PackedRowBuffer movedOdd;
    SurroundSumsBuffer left;
    SurroundSumsBuffer right;
    Range valueRange { 1073741824, 0 };
};

} // namespace vx::kernels
