#pragma once

#include <QImage>
#include <QSize>
#include <QVector>

namespace benchmarks {

/// What pictures are like.
enum class Kind {
    Photo, ///< a drawn scene with a subject, edges and texture
    Noise, ///< every pixel of another colour
    Flat, ///< one colour
    Bright, ///< opaque grey noise of levels above 150, all of which spread
    Dark, ///< opaque grey noise of levels below 150, none of which spreads
};

/// The name of \a kind as it stands in the results.
const char* nameOf(Kind kind);

/// The sizes that are measured, in ascending order.
const QVector<QSize>& sizes();

/// A picture, RGB32 or ARGB32; drawn when it is first asked for.
const QImage& picture(Kind kind, const QSize& size);

/// An ARGB32 image of the size of \a image, its pixels not yet set.
QImage mapFor(const QImage& image);

} // namespace benchmarks
