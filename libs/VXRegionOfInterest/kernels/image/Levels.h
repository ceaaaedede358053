#pragma once

#include "../RowLoops.h"

#include <QImage>

/// \file
/// The levels of a salience map, 0 to 255, as an image in QImage::Format_Grayscale8: all that a map says,
/// in a quarter of its memory.

namespace vx::kernels {

/// Levels that nobody has written yet; null for an empty \a size. \throws std::bad_alloc
QImage uninitializedLevels(const QSize& size);

/// Row \a y of levels, for reading.
inline const quint8* levelRow(const QImage& levels, int y) { return levels.constScanLine(y); }

/// Row \a y of levels, for writing.
inline quint8* writableLevelRow(QImage& levels, int y) { return levels.scanLine(y); }

/// Writes \a levels into \a map, an ARGB32 image of the same size, as opaque grey.
void writeGrey(const QImage& levels, QImage& map, const RowLoops& loops = fastestRowLoops());

} // namespace vx::kernels
