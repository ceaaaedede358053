#pragma once

#include "AllowedStarts.h"
#include "Direction.h"

#include <QList>
#include <QRect>
#include <QSize>
#include <QVector>

/// \file
/// How faces draw a window and keep whole in it.

namespace vx::crop {

/// Adds to the sums of a map along an axis what its faces weigh: each a fifth of what the map holds without them, spread evenly
/// over the ellipse in the face's box, extended downwards by half its height for the chin and shoulders.
/// \param sums those of the map's columns or rows; see Direction::sumsOf().
/// \param map the size of the map.
/// \param faces boxes in picture pixels, within the picture and not empty.
void addFaces(QList<long long>& sums, const Direction& direction, const QSize& map,
    const QVector<QRect>& faces);

/// The start nearest to \a start at which faces are whole in the window, as many as can be: the largest first, of those
/// that have at least 30 % in it. A face that is longer than the window stays as it is, and so does one
/// that cannot be shown whole beside a larger one.
/// \param faces as for addFaces().
/// \param allowed the starts to choose from; when none of them shows a face whole, it stays as it is.
int startThatShows(const Direction& direction, int start, const QVector<QRect>& faces,
    const QVector<Span>& allowed);

} // namespace vx::crop
