#pragma once

#include <QRgb>

#include <cstddef>

namespace vx::kernels {

/// How far from 0 a sum may be that is kept in 16 bits.
constexpr int mostOfSmallSums = 32767;

/// How many maps are blended in a single pass; sums of more are kept in memory.
constexpr std::size_t mapsAtOnce = 5;

/// A row of bytes and its weight.
struct WeightedBytes {
    const quint8* bytes; ///< one for each pixel
    qint16 weight; ///< what each is multiplied by
};

/// The loops of the blend.
struct BlendLoops {
    /// Adds \a values times \a weight to sums of 32 bits, which wrap.
    void (*addWeighted)(const quint8* values, int count, quint32 weight, quint32* sums);

    /// Divides signed sums by \a divisor, truncates, clamps to 0 to 255 and writes opaque grey. The
    /// quotient is that of 32 bits, which wraps. \pre the divisor is not 0.
    void (*divideSums)(const quint32* sums, int count, int divisor, QRgb* pixels);

    /// What addWeighted() of each of `mapsAtOnce` maps and divideSums() write, in one pass. \pre no sum is
    /// beyond ±`mostOfSmallSums`, and the divisor is above 0.
    void (*blendFew)(const WeightedBytes* maps, int count, int divisor, QRgb* pixels);
};

} // namespace vx::kernels
