#pragma once

#include "AlignedArray.h"
#include "loops/RowLoops.h"

#include <QImage>

#include <memory>

namespace vx::kernels {

/// Spreads the pixels of an ARGB32 or RGB32 image where those that spread are opaque grey: their red
/// value is the whole pixel.
class GreySpreading {
public:
    GreySpreading(const QImage& sourceImage, const RowLoops& rowLoops);

    /// Reads the red values above the threshold.
    /// \return whether all of those pixels are opaque grey.
    bool readKeys(int threshold);

    /// Writes the spread source into \a result, an image of its size and format. \pre readKeys() has
    /// returned true.
    void writeInto(QImage& result, int arm) const;

private:
    std::size_t pixelCount() const;
    std::ptrdiff_t offsetOf(std::ptrdiff_t y) const;

    const QImage& source;
    const RowLoops& loops;
    int width;
    int height;
    AlignedArray<quint8> keys; ///< red values
};

} // namespace vx::kernels
