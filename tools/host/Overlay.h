#pragma once

#include <QImage>
#include <QRect>
#include <QVector>

namespace host {

/// Draws \a picture with its salience \a map over it as heat, from clear through violet and orange
/// to yellow for the map's brightest level, and with \a window outlined and all around it dimmed. A
/// bar in the lower left corner shows the heat scale, from no salience to that level.
/// \param window in picture pixels; a null rectangle outlines nothing.
/// \param keep areas to mark with dashed lines, in picture pixels.
/// \return an image of the picture's shape, at most 1600 pixels on its longer side.
QImage drawOverlay(
    const QImage& picture, const QImage& map, const QRect& window, const QVector<QRect>& keep = {});

} // namespace host
