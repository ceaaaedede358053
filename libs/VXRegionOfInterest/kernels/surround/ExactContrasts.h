#pragma once

#include "../RowLoops.h"
#include "../image/AlignedArray.h"
#include "SurroundSpan.h"

#include <QImage>

#include <array>
#include <vector>

namespace vx::kernels {

/// Luma and the two colour differences of a pixel, or sums of them, in the order of LumaChroma.
using Colour = std::array<double, 3>;

/// A row of the integral images of an image's luma and chroma.
class IntegralRow {
public:
    /// The zeros above the first row. \pre \a image has 32 bits per pixel and outlives this.
    explicit IntegralRow(const QImage& image);

    /// Moves on to row \a y, which is this row or one below it.
    void moveTo(int y);

    /// The sums over the rows so far and the columns up to \a x, which may be -1.
    const Colour& upTo(std::ptrdiff_t x) const { return sums[static_cast<std::size_t>(x + 1)]; }

private:
    const QImage& words;
    int current = -1;
    std::vector<Colour> sums;
};

/// The contrast of each pixel of an image to its surround, to the bit: in the order of operations that
/// surroundContrast() states. The exact fallback of FloatingPointFilter.
///
/// In the upper half of the image every surround begins with row 0, in the lower half every surround
/// ends with the last row. So two moving rows of the integral images are enough, and nothing but the
/// contrasts is as large as the image.
class ExactContrasts {
public:
    /// Computes them all. \pre \a image has 32 bits per pixel and is not null.
    ExactContrasts(const QImage& image, const RowLoops& rowLoops);

    /// The contrasts of row \a y.
    const double* row(int y) const;

    /// Fills \a greyMap with the contrasts, stretched to grey values.
    void stretch(QImage& greyMap) const;

private:
    std::vector<Colour> smoothedAlong(int y) const;
    void compute(int y);
    Colour surroundSum(const SurroundSpan& columns) const;
    Colour smoothedDown(int x, double weights) const;

    const QImage& words;
    const RowLoops& loops;
    const int width;
    const int height;
    AlignedArray<double> values;
    IntegralRow above; ///< the row before surrounds begin
    IntegralRow bottom; ///< the row that surrounds end with
    std::array<std::vector<Colour>, 3> smoothedRows; ///< the row before, this one and the next
};

} // namespace vx::kernels
