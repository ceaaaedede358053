#pragma once

#include <VXCrop/VXCrop.h>

#include <QImage>
#include <QRect>
#include <QRgb>

#include <array>

namespace host {

/// The colours of heat, with their opacity, at even steps from no salience to the brightest level; nothing is
/// tinted below a quarter.
constexpr std::array<QRgb, 5> heatStops
    = { 0x00581A6E, 0x00581A6E, 0x90B6365A, 0xB0F07F18, 0xC0FCF060 };

/// Draws \a picture with its salience \a map over it as heat, from clear through violet and orange
/// to yellow for the map's brightest level, and with \a window outlined and all around it dimmed. Where the
/// map has less than a quarter of its brightest level, nothing is tinted. A strip below the picture shows
/// the scale, unless the picture is too narrow for it.
/// \param window in picture pixels; a null rectangle outlines nothing.
/// \param constraints areas to mark with dashed lines: cyan to keep, red to avoid.
/// \return an image of the picture, at most 1600 pixels on its longer side, and the strip.
QImage drawOverlay(const QImage& picture, const QImage& map, const QRect& window,
    const VXCropConstraints& constraints = {});

} // namespace host
