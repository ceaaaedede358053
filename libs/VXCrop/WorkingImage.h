#pragma once

#include <QImage>
#include <QSize>

namespace vx::crop {

/// \a picture at \a size, on mid-grey where it is transparent: see VXCrop::workingImage(). \pre
/// neither is empty.
/// \throws std::bad_alloc
QImage reduced(const QImage& picture, const QSize& size);

/// What a map from elsewhere says, in QImage::Format_Grayscale8: its opacity where any of it is
/// transparent, otherwise its grey levels. \pre \a map is not empty. \throws std::bad_alloc
QImage opacityOrGrey(const QImage& map);

/// Returns \a image, which Qt was asked for and which cannot be empty. \throws std::bad_alloc for a
/// null image.
QImage held(QImage image);

} // namespace vx::crop
