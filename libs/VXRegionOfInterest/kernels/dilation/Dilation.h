#pragma once

#include "../RowLoops.h"

#include <QImage>

namespace vx::kernels {

/// The dilation of what exceeds a threshold: bright pixels spread along their row and column. The structuring element
/// is a cross with arms of \a radius pixels.
///
/// In scan order, every pixel of \a source with a red value above \a threshold overwrites those
/// within \a radius columns in its row, then those within \a radius rows in its column, wherever the
/// result so far has a smaller red value. Pixels are read and written as QImage::pixel and
/// QImage::setPixel do; formats whose setPixel takes an index cannot take up a colour and stay as
/// they are. \return the result, in the format of \a source and in memory of its own.
QImage dilate(
    const QImage& source, int radius, int threshold, const RowLoops& loops = fastestRowLoops());

/// What dilate() does, in place, to a grey map that is not null. \pre \a radius is above 0.
void dilateGrey(
    QImage& greyMap, int radius, int threshold, const RowLoops& loops = fastestRowLoops());

namespace reference {
/// Overwrites pixel by pixel.
QImage dilate(const QImage& source, int radius, int threshold);
} // namespace reference

} // namespace vx::kernels
