#pragma once

#include <VXCrop/VXCrop.h>

#include <QImage>
#include <QRect>
#include <QRgb>

#include <array>

namespace host {

/// The colours of the heat scale, with their opacity, at equal steps from level 0 to the map's brightest level. Nothing
/// is tinted below a quarter of the brightest level.
constexpr std::array<QRgb, 5> heatStops
    = { 0x00581A6E, 0x00581A6E, 0x90B6365A, 0xB0F07F18, 0xC0FCF060 };

/// Draws \a picture with its salience \a map over it as heat: clear, violet, orange, and yellow for the map's brightest
/// level; see heatStops. \a window is outlined and everything outside it dimmed. A strip below the picture shows the
/// scale, unless the picture is too narrow for it.
/// \param window in picture pixels; null: nothing is outlined.
/// \param constraints areas to mark with dashed lines: cyan to keep, red to avoid, green for faces.
/// \return the picture, scaled to at most 1600 pixels on its longer side, with the strip below it.
QImage drawOverlay(const QImage& picture, const QImage& map, const QRect& window,
    const VXCropConstraints& constraints = {});

} // namespace host
