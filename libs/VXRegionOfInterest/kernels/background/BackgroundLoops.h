#pragma once

#include <QRgb>

namespace vx::kernels {

/// The loops of the background map.
struct BackgroundLoops {
    /// Adds the channels of each pixel to the sums of its column: red times 2¹⁶ plus blue, and green.
    void (*addChannels)(const QRgb* pixels, int count, quint32* redBlue, quint32* green);

    /// Writes a row of opaque grey pixels, interpolated linearly between the grey values of \a cells cells.
    ///
    /// The pixels from the end of the previous cell up to \a ends of a cell lie between its grey value and the
    /// next one; \a shares says how far along each is, 0 to 1. \pre \a greys has one value more than there are cells,
    /// and the last end is the width of the row.
    void (*interpolateRow)(
        const float* greys, const int* ends, int cells, const float* shares, QRgb* pixels);
};

} // namespace vx::kernels
