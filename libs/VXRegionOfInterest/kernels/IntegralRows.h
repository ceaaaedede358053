#pragma once

#include "loops/RowLoops.h"

#include <QImage>

#include <vector>

namespace vx::kernels {

/// A row of the integral images of an image's luma and chroma, with the margins that its loops need.
class IntegralRowBuffer {
public:
    /// A row of zeros.
    explicit IntegralRowBuffer(int width);

    IntegralRow row();

    /// Moves on to the next row, whose pixels these are.
    void addRow(const QRgb* pixels, int width);

private:
    void addTo(double& rowSum, double value, int channel, int x);

    std::ptrdiff_t stride;
    std::vector<double> values;
};

/// Rows of the integral images of an image of 32 bits per pixel, from the top down.
///
/// Rows are asked for in ascending order, every second one, from the first or the second on; the last
/// row may follow directly upon the one before it. Two rows are held at a time.
class IntegralRows {
public:
    IntegralRows(const QImage& image, const RowLoops& rowLoops);

    /// Row \a y; valid until a row is asked for that is not held.
    IntegralRow at(int y);

    /// Whether row \a y is one of the two that are held.
    bool holds(int y) const;

private:
    static constexpr std::size_t rowsAtOnce = 4;

    std::size_t pixelStride() const;
    void addRow(int y, IntegralRowBuffer& sums, int& current) const;
    void addFourRows();
    const QRgb* rowWithMargins(int y, QRgb* copy) const;

    const QImage& words;
    const RowLoops& loops;
    IntegralRowBuffer middle;
    IntegralRowBuffer end;
    int middleRow = -1; ///< which row the buffers hold; -1 for the zeros above the first
    int endRow = -1;
    std::vector<QRgb> pixels; ///< copies of rows beside which nothing can be read
};

} // namespace vx::kernels
