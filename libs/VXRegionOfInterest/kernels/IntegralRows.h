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
/// row may follow directly upon the one before it. Four rows are held at a time.
class IntegralRows {
public:
    IntegralRows(const QImage& image, const RowLoops& rowLoops);

    /// Row \a y; valid until a row is asked for that is not held.
    IntegralRow at(int y);

    /// Whether row \a y is one of those that are held.
    bool holds(int y);

private:
    static constexpr std::size_t rowsAtOnce = 8;

    // A row that is held, and which one that is.
    struct Held {
        IntegralRowBuffer sums;
        int y = 0;
    };

    Held* find(int y);
    std::size_t pixelStride() const;
    void addEightRows();
    const QRgb* rowWithMargins(int y, QRgb* copy) const;

    const QImage& words;
    const RowLoops& loops;
    std::vector<Held> held;
    std::vector<QRgb> pixels; ///< copies of rows beside which nothing can be read
};

} // namespace vx::kernels
