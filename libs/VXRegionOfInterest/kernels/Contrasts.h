#pragma once

#include "IntegralRows.h"
#include "UninitializedArray.h"
#include "loops/RowLoops.h"

#include <QImage>

#include <vector>

namespace vx::kernels {

/// A row of luma and chroma, of zeros at first.
class ChannelRowBuffer {
public:
    explicit ChannelRowBuffer(int width);

    ChannelRow row();

private:
    std::vector<double> values;
    int stride;
};

/// The contrast of each pixel of an image of 32 bits per pixel to its surround: the squared distance
/// that surroundContrast() stretches to levels.
///
/// In the upper half of the image every surround begins with row 0, in the lower half every surround
/// ends with the last row. So two sweeps with one moving row of the integral image each are enough,
/// and nothing but the contrasts is as large as the image.
class Contrasts {
public:
    /// Computes them all. \pre \a image is not null.
    Contrasts(const QImage& image, const RowLoops& rowLoops);

    const double* row(int y) const;

    /// The smallest and the greatest contrast.
    const Range& range() const;

private:
    void sweep();
    bool isUpper(int y) const;
    int movingRow(int y) const;
    bool areHeldTogether(int y);
    double* writableRow(int y);
    ContrastRow contrastRow(int y);

    const QImage& words;
    const RowLoops& loops;
    const std::size_t width;
    UninitializedArray<double> values;
    ChannelRowBuffer alongRow;
    ChannelRowBuffer weightedSum;
    std::vector<double> surroundWidths;
    std::vector<double> widthReciprocals;
    IntegralRows upper;
    IntegralRows lower;
    Range valueRange { 1073741824, 0 };
};

} // namespace vx::kernels
