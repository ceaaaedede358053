#pragma once

#include <QColor>
#include <QImage>

namespace scenes {

/// Fills an RGB32 image with a sky that pales towards the horizon, with clouds where the noise is high.
void paintSky(QImage& scene, const QColor& zenith, const QColor& horizon, const QColor& cloud);

/// Paints a hill whose outline is noise, filled downwards with grass.
/// \param crest the lowest row that the outline reaches.
/// \param roughness how many rows above that it may rise.
void paintHill(QImage& scene, int crest, double roughness, const QColor& grass, unsigned seed);

/// Paints water below the row \a horizon, in short, flat waves, with a path of sunlight around the column \a sunX.
void paintSea(QImage& scene, int horizon, const QColor& far, const QColor& near, int sunX);

/// Fills an RGB32 image with leaves and lights out of focus: soft discs over mottled green.
void paintMeadow(QImage& scene);

} // namespace scenes
