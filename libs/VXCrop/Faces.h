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

/// Adds to \a sums, those of a map's columns or rows along \a direction, what \a faces weigh: each a fifth of what the
/// map holds without them, spread evenly over the ellipse in the face's box, which is extended downwards by half its
/// height for the chin and shoulders. \a map is the map's size; boxes are in picture pixels, within the picture and not
/// empty.
void addFaces(QList<long long>& sums, const Direction& direction, const QSize& map,
    const QVector<QRect>& faces);

/// The start nearest to \a start, one of \a allowed, at which \a faces are whole in a window that moves along \a direction:
/// as many as can be, the largest first, of those that have at least 30 % in it. A face that is longer than the
/// window, that cannot be whole beside a larger one, or that no allowed start shows whole stays as it is. Boxes are as
/// for addFaces().
int startThatShows(const Direction& direction, int start, const QVector<QRect>& faces,
    const QVector<Span>& allowed);

} // namespace vx::crop
