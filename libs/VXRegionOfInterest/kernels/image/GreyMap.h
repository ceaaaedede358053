#pragma once

#include "../RowLoops.h"

#include <QImage>

/// \file
/// Grey maps: salience maps in QImage::Format_Grayscale8, a byte for each pixel. They hold all that an opaque grey
/// ARGB32 map says, in a quarter of its memory.

namespace vx::kernels {

/// A grey map whose pixels are not initialised; null for an empty \a size. \throws std::bad_alloc
QImage uninitializedGreyMap(const QSize& size);

/// Row \a y of a grey map, for reading.
inline const quint8* greyRow(const QImage& greyMap, int y) { return greyMap.constScanLine(y); }

/// Row \a y of a grey map, for writing.
inline quint8* writableGreyRow(QImage& greyMap, int y) { return greyMap.scanLine(y); }

/// Writes \a greyMap into \a map, an ARGB32 image of the same size, as opaque grey.
void writeOpaqueGrey(const QImage& greyMap, QImage& map, const RowLoops& loops = fastestRowLoops());

} // namespace vx::kernels
