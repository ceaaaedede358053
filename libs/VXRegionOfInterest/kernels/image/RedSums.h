#pragma once

#include "../RowLoops.h"

#include <QImage>
#include <QList>

namespace vx::kernels {

/// The sum of the red values of each column of \a words, an image of 32 bits per pixel.
QList<long long> columnRedSums(const QImage& words, const RowLoops& loops = fastestRowLoops());

/// The sum of the red values of each row of \a words, an image of 32 bits per pixel.
QList<long long> rowRedSums(const QImage& words, const RowLoops& loops = fastestRowLoops());

namespace reference {
/// Adds column by column.
QList<long long> columnRedSums(const QImage& words);
/// Adds row by row.
QList<long long> rowRedSums(const QImage& words);
} // namespace reference

} // namespace vx::kernels
