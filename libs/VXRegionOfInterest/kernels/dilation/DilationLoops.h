#pragma once

#include <QRgb>

#include <cstddef>

namespace vx::kernels {

/// The loops of the dilation.
struct DilationLoops {
    /// Writes the red values above \a threshold, and 0 for the others.
    /// \return whether the pixels above it are opaque grey, once the bits of \a alwaysSet are set.
    bool (*readKeys)(const QRgb* pixels, int count, int threshold, QRgb alwaysSet, quint8* keys);

    /// Writes the bytes above \a threshold, and 0 for the others.
    /// \return whether any is above it.
    bool (*keepAbove)(const quint8* bytes, std::ptrdiff_t count, int threshold, quint8* kept);

    /// Writes the greater of each pair. \a maxima may be \a a.
    void (*writeMaxima)(const quint8* a, const quint8* b, std::ptrdiff_t count, quint8* maxima);

    /// Copies pixels, but writes the greater of two keys as opaque grey where it exceeds their red value.
    void (*spreadRow)(
        const quint8* a, const quint8* b, int count, const QRgb* source, QRgb* target);
};

} // namespace vx::kernels
