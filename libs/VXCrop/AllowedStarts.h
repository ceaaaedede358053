#pragma once

#include "Axis.h"

#include <QVector>

/// \file
/// Where areas to keep and to avoid let a window begin.

namespace vx::crop {

/// An area of a picture that the window may overlap.
struct Area {
    Span extent; ///< along the axis
    int breadth; ///< across the axis, in pixels
};

/// The starts at which the window holds as many of \a areas as it can; of an area longer than the
/// window, those at which the window lies within it. All starts when there are no areas.
/// \return spans in ascending order, at least one, all within 0 to axis.lastStart().
QVector<Span> startsThatKeep(const Axis& axis, const QVector<Span>& areas);

/// Those of the starts \a allowed at which the window has the fewest pixels of \a areas, counted
/// once for each area.
/// \return spans in ascending order, at least one.
QVector<Span> startsThatAvoid(
    const Axis& axis, const QVector<Span>& allowed, const QVector<Area>& areas);

} // namespace vx::crop
