#pragma once

#include <QImage>

namespace vx::kernels {

/// Scales \a image into \a bound by nearest neighbour, its aspect ratio kept.
/// \return what QImage::scaled makes of it with Qt::KeepAspectRatio and Qt::FastTransformation, pixel for
///         pixel and in the same format; other properties may be lost. \a image itself when it has that
///         size already, when it is null, or when \a bound has a side below 0. Null when one is 0.
QImage scaledInto(const QSize& bound, const QImage& image);

} // namespace vx::kernels
