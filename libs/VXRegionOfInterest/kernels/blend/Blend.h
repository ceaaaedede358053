#pragma once

#include "../RowLoops.h"

#include <QImage>
#include <QList>

#include <cstddef>
#include <vector>

namespace vx::kernels {

/// A map as it is blended: a view of an image that is null, holds levels, or has 32 bits per pixel, of which
/// red counts.
class MapView {
public:
    /// \pre \a map outlives this, or what it is moved to does.
    explicit MapView(const QImage& map);

    /// Columns.
    int width() const { return columns; }
    /// Rows.
    int height() const { return rows; }

    /// The levels of row \a y; \a buffer holds width() bytes.
    const quint8* levels(int y, quint8* buffer, const RowLoops& loops) const;

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
/// Level of pixel (x, y): the sum over the maps of red · weight, divided by the sum of the positive
/// weights (of 1 when that sum is 0), truncated toward zero, clamped to 0 to 255, written as opaque
/// grey. Sums, divisor and quotient are signed 32-bit and wrap, so INT_MIN / -1 is INT_MIN. A map is
/// black beyond its own edges, and a missing weight is 0; the divisor counts surplus weights.
void blend(const std::vector<MapView>& maps, const QList<int>& weights, QImage& target,
    const RowLoops& loops = fastestRowLoops());

namespace reference {
/// Adds and divides pixel by pixel; the maps are images of 32 bits per pixel.
void blend(const QList<QImage>& maps, const QList<int>& weights, QImage& target);
} // namespace reference

} // namespace vx::kernels
