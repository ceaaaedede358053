#pragma once

#include "AlignedArray.h"
#include "loops/RowLoops.h"

#include <QImage>

namespace vx::kernels {

/// A byte for each pixel of an image, row by row: all that a grey map says, in a quarter of its memory.
struct BytePlane {
    int width;
    int height;
    AlignedArray<quint8> values;

    quint8* row(int y) const { return values.get() + static_cast<std::ptrdiff_t>(y) * width; }
};

/// How many bytes a plane of that size has.
inline std::size_t byteCount(const QSize& size)
{
    return static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height());
}

/// A plane whose bytes nobody has written yet. \pre \a size is not negative.
inline BytePlane uninitializedPlane(const QSize& size)
{
    return { size.width(), size.height(), AlignedArray<quint8>(byteCount(size)) };
}

/// A plane of zeros. \pre \a size is not negative.
inline BytePlane blackPlane(const QSize& size)
{
    return { size.width(), size.height(), AlignedArray<quint8>(byteCount(size), 0) };
}

/// The red values of \a words, an image of 32 bits per pixel.
BytePlane redPlaneOf(const QImage& words, const RowLoops& loops = fastestRowLoops());

/// The opaque grey ARGB32 image that has these levels; null for an empty plane.
QImage greyImageOf(const BytePlane& levels, const RowLoops& loops = fastestRowLoops());

} // namespace vx::kernels
