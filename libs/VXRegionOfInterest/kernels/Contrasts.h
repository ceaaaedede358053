#pragma once

#include "AlignedArray.h"
#include "BytePlane.h"
#include "loops/RowLoops.h"

#include <QImage>

#include <array>
#include <vector>

namespace vx::kernels {

/// A row of luma and the two colour differences, in the order of LumaChroma.
using ChannelRow = std::array<std::vector<double>, 3>;

/// A row of the integral images of an image's luma and chroma.
class IntegralRow {
public:
    /// The zeros above the first row. \pre \a image has 32 bits per pixel and outlives this.
    explicit IntegralRow(const QImage& image);

    /// Moves on to row \a y, which is this row or one below it.
    void moveTo(int y);

    /// The sum of the rows so far up to column \a x, which may be -1.
    double sum(std::size_t channel, int x) const;

private:
    const QImage& words;
    int current = -1;
    ChannelRow sums; ///< the sum up to column x is at x + 1
};

/// The contrast of each pixel of an image to its surround, see surroundContrast(), in the order of
/// operations that tells the last bit of it.
///
/// In the upper half of the image every surround begins with row 0, in the lower half every surround
/// ends with the last row. So two moving rows of the integral images are enough, and nothing but the
/// contrasts is as large as the image.
class Contrasts {
public:
    /// Computes them all. \pre \a image has 32 bits per pixel and is not null.
    Contrasts(const QImage& image, const RowLoops& loops);

    const double* row(int y) const;

    /// Fills \a levels with the levels of the contrasts.
    void writeLevels(BytePlane& levels) const;

private:
    ChannelRow smoothedAlong(int y) const;
    void compute(int y);
    double squaredDistance(std::size_t channel, int x, int y) const;

    const QImage& words;
    const RowLoops& loops;
    const int width;
    const int height;
    AlignedArray<double> values;
    IntegralRow above; ///< the row before surrounds begin
    IntegralRow bottom; ///< the row that surrounds end with
    std::array<ChannelRow, 3>
        smoothedRows; ///< along themselves: the row before, this one, the next
};

} // namespace vx::kernels
