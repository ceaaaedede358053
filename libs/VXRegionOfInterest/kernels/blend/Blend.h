#pragma once

#include "../RowLoops.h"

#include <QImage>
#include <QList>

#include <cstddef>
#include <vector>

namespace vx::kernels {

/// A view of a salience map: of a grey map (see GreyMap.h), of an image of 32 bits per pixel, whose red channel counts,
/// or of a null image.
class MapView {
public:
    /// \pre the pixels of \a map outlive this.
    explicit MapView(const QImage& map);

    /// Columns.
    int columnCount() const { return columns; }
    /// Rows.
    int rowCount() const { return rows; }

    /// The salience of each pixel of row \a y, 0 to 255; \a buffer holds columnCount() bytes.
    const quint8* salienceRow(int y, quint8* buffer, const RowLoops& loops) const;

private:
    const uchar* first;
    std::ptrdiff_t bytesPerRow;
    int columns;
    int rows;
    bool holdsWords;
};

/// Blends \a maps by \a weights, paired by position, into \a target, an image of 32 bits per pixel and
/// any size, which may be one of the maps itself.
///
/// The grey value of pixel (x, y) is the sum over the maps of salience · weight, divided by the sum of the positive
/// weights (1 when that is 0), truncated toward zero, clamped to 0 to 255, and written as opaque
/// grey. Sums, divisor and quotient are signed 32-bit and wrap, so INT_MIN / -1 is INT_MIN. A map is
/// black beyond its own edges, and a missing weight is 0; surplus weights count in the divisor.
void blend(const std::vector<MapView>& maps, const QList<int>& weights, QImage& target,
    const RowLoops& loops = fastestRowLoops());

namespace reference {
/// Adds and divides pixel by pixel; the maps are images of 32 bits per pixel.
void blend(const QList<QImage>& maps, const QList<int>& weights, QImage& target);
} // namespace reference

} // namespace vx::kernels
