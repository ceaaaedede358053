#pragma once

#include <QRgb>

#include <cstddef>

namespace vx::kernels {

/// The loops of the dilation. A key is a red value above the threshold, or 0.
struct DilationLoops {
    /// Writes the keys of pixels.
    /// \return whether all pixels above \a threshold are opaque grey, once the bits of \a alphaMask are set.
    bool (*thresholdReds)(
        const QRgb* pixels, int count, int threshold, QRgb alphaMask, quint8* keys);

    /// Writes the keys of grey values.
    /// \return whether any is above \a threshold.
    bool (*thresholdBytes)(const quint8* bytes, std::ptrdiff_t count, int threshold, quint8* keys);

    /// Writes the greater of each pair of keys. \a maxima may be \a a.
    void (*writeMaxima)(const quint8* a, const quint8* b, std::ptrdiff_t count, quint8* maxima);

    /// Copies pixels, but writes the greater of two keys as opaque grey where it exceeds their red value.
    void (*dilateRow)(
        const quint8* a, const quint8* b, int count, const QRgb* source, QRgb* target);
};

} // namespace vx::kernels
