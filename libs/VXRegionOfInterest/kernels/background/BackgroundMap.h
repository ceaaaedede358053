#pragma once

#include "../RowLoops.h"

#include <QImage>

namespace vx::kernels {

/// Writes how far each pixel stands out from what the border of its picture shows, as opaque grey.
///
/// On cells of the picture (see gridFor(), 80 along the longer side) the barrier, border colour and geodesic
/// distances are added and stretched to 0 to 1. What exceeds 0.3 times the mean counts, times a centre prior
/// exp(−x² / (2 · 0.4²) − y² / (2 · 0.25²)), with x and y how far a cell's middle is from that of the
/// picture, as a share of its width and height. The largest becomes 1; see writeEnlarged() for the rest.
/// \a words and \a map have 32 bits per pixel and the same size; nothing is written where they are null.
void writeBackgroundMap(
    const QImage& words, QImage& map, const RowLoops& loops = fastestRowLoops());

namespace reference {
/// One step after the other over rows of numbers, one channel after the other, without any shortcut.
void writeBackgroundMap(const QImage& words, QImage& map);
} // namespace reference

} // namespace vx::kernels
