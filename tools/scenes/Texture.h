#pragma once

#include <QColor>
#include <QImage>

namespace scenes {

/// Smooth random values between 0 and 1, the same for the same arguments on every machine.
/// \param x,y position in cells of the noise; values vary over about one cell.
/// \param seed picks one of many noises.
double valueNoise(double x, double y, unsigned seed);

/// Four octaves of valueNoise(), each half as strong and twice as fine as the one before.
double fractalNoise(double x, double y, unsigned seed);

/// The colour at \a share, 0 to 1, of the way from \a from to \a to.
QColor mixed(const QColor& from, const QColor& to, double share);

/// Adds the grain of a sensor and the darker corners of a lens to \a scene, an RGB32 image.
void addGrainAndVignette(QImage& scene, unsigned seed);

} // namespace scenes
