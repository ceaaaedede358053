#pragma once

#include <QRgb>

namespace vx::kernels {

/// What the red values of a row add up to.
struct RedMeasure {
    quint64 sum; ///< of all red values
    quint64 excess; ///< of what those above the mean exceed it by
    quint64 above; ///< how many are above the mean
};

/// Loops over rows of pixels.
struct PixelLoops {
    /// Writes grey values as opaque grey pixels.
    void (*writeOpaqueGrey)(const quint8* greys, int count, QRgb* pixels);

    /// Whether all pixels are \a word.
    bool (*isUniform)(const QRgb* pixels, int count, QRgb word);

    /// Writes the red values of pixels.
    void (*readReds)(const QRgb* pixels, int count, quint8* reds);

    /// Adds the red value of each pixel to the sum of its column. \pre the sums fit into 32 bits.
    void (*addReds)(const QRgb* pixels, int count, quint32* sums);

    /// Measures the red values of pixels against \a mean.
    RedMeasure (*measureReds)(const QRgb* pixels, int count, int mean);

    /// Writes packedLumaChromaOf() of each pixel.
    void (*packLumaChroma)(const QRgb* pixels, int count, QRgb* target);
};

} // namespace vx::kernels
