#pragma once

#include "../RowLoops.h"

#include <QImage>

namespace vx::kernels {

/// Spreads the pixels of \a source whose red exceeds \a threshold along their row and column.
///
/// In scan order, every pixel of \a source with a red value above \a threshold overwrites those
/// within \a arm columns in its row, then those within \a arm rows in its column, wherever the
/// result so far has a smaller red value. Pixels are read and written as QImage::pixel and
/// QImage::setPixel do; formats whose setPixel takes an index cannot take up a colour and stay as
/// they are. \return the result, in the format of \a source and in memory of its own.
QImage maxFilter(
    const QImage& source, int arm, int threshold, const RowLoops& loops = fastestRowLoops());

/// What maxFilter() does, in place, to levels that are not null. \pre \a arm is above 0.
void spreadLevels(
    QImage& levels, int arm, int threshold, const RowLoops& loops = fastestRowLoops());

namespace reference {
/// Overwrites pixel by pixel.
QImage maxFilter(const QImage& source, int arm, int threshold);
} // namespace reference

} // namespace vx::kernels
