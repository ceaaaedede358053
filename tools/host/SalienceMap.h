#pragma once

#include <QImage>

namespace host {

/// Computes the salience map of \a picture with the library's default methods and weights.
/// \return a map that fits into 640 × 480 pixels and has the picture's aspect ratio.
QImage salienceMapOf(const QImage& picture);

} // namespace host
