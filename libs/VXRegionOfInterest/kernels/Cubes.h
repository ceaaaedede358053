#pragma once

#include "RowLoops.h"

#include <QImage>
#include <QSize>

namespace vx::kernels {

/// What a cube, a cell of the clusterer's grid, is compared with.
struct CubeStandard {
    int averageCube; ///< salience of an average cube, not 0
    int meanPixel; ///< salience of an average pixel
};

/// The sum of the red values of \a words, an image of 32 bits per pixel; 32-bit, wraps.
int totalRed(const QImage& words, const RowLoops& loops = fastestRowLoops());

/// Paints each cube of \a words in a grey that says how salient it is, into \a target, of the same size. Cubes of size
/// \a cube start at the upper left and are cut off at the edges; both images have 32 bits per pixel.
///
/// S is the sum of a cube's red values, unsigned 32-bit. The excess is the mean of what those of its pixels
/// above meanPixel exceed it by; if it exceeds twice meanPixel, S becomes excess · S,
/// truncated, its low 32 bits. The grey value is S · 128 modulo 2³² divided by averageCube, both
/// unsigned, at most 255, and the pixels are opaque grey. A cube whose number of pixels times
/// number of rows is 0 modulo 2³² is black. \pre both sides of \a cube are above 0.
void paintCubes(const QImage& words, const QSize& cube, const CubeStandard& standard,
    QImage& target, const RowLoops& loops = fastestRowLoops());

namespace reference {
/// Adds pixel by pixel.
int totalRed(const QImage& words);
/// Scans and paints pixel by pixel.
void paintCubes(
    const QImage& words, const QSize& cube, const CubeStandard& standard, QImage& target);
} // namespace reference

} // namespace vx::kernels
