#pragma once

#include "../RowLoops.h"

#include <QImage>

namespace vx::kernels {

/// Writes how far each pixel stands out from what the border of its picture shows, as opaque grey.
///
/// For cells of the picture (see gridFor(), 80 along the longer side), the distances of BackgroundDistances.h are added
/// and stretched to 0 to 1. What exceeds 0.3 times the mean counts, times a centre prior
/// exp(−x² / (2 · 0.4²) − y² / (2 · 0.25²)), where x and y are the distance of a cell's centre from that of the
/// picture, as a share of its width and height. The result is divided by its largest value; writeEnlarged() makes a map
/// of it. \a words and \a map have 32 bits per pixel and the same size; nothing is written where they are null.
void writeBackgroundMap(
    const QImage& words, QImage& map, const RowLoops& loops = fastestRowLoops());

namespace reference {
/// Takes the channels one by one, in arrays of numbers.
void writeBackgroundMap(const QImage& words, QImage& map);
} // namespace reference

} // namespace vx::kernels
