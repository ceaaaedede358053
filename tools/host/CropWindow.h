#pragma once

#include "AspectRatio.h"

#include <QImage>
#include <QRect>
#include <QSize>

namespace host {

/// The largest window of \a ratio that fits into \a picture.
///
/// It is as wide or as high as the picture; the other side is rounded to whole pixels and is at
/// least 1.
/// \pre both sides of \a picture are above 0.
QSize largestWindow(const QSize& picture, const AspectRatio& ratio);

/// Chooses the window of \a ratio to keep of a picture.
///
/// The window is the largest one; along the axis with room to move, a maximizer chooses its start
/// on the map. The picture itself is not looked at, so the choice costs the same for any picture.
/// \param map the picture's salience map, of any size; not null.
/// \param picture size of the picture in pixels; both sides above 0.
/// \return a rectangle within the picture, in picture pixels.
QRect chooseWindow(const QImage& map, const QSize& picture, const AspectRatio& ratio);

/// The pixels of \a picture within \a window, with its colour space and resolution, without copying
/// them: to write into the view is to write into the picture.
/// \pre \a picture has 32 bits per pixel and outlives the result.
QImage viewOf(QImage& picture, const QRect& window);

} // namespace host
