#pragma once

#include <QImage>
#include <QRect>

namespace host {

/// Draws \a picture with its salience \a map over it as heat, from clear through violet and orange
/// to yellow for the map's brightest level, and with \a window outlined and all around it dimmed.
/// \param window in picture pixels; a null rectangle outlines nothing.
/// \return an image of the picture's shape, at most 1600 pixels on its longer side.
QImage drawOverlay(const QImage& picture, const QImage& map, const QRect& window);

} // namespace host
