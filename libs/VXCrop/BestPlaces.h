#pragma once

#include "Axis.h"

#include <QList>
#include <QVector>

namespace vx::crop {

/// A place for the window.
struct Place {
    int start; ///< in picture pixels
    bool isCentre; ///< no other place holds noticeably more
};

/// The places where the window holds most salience, at most \a most of them, the best first. They overlap by
/// less than half of the window.
///
/// What lies within a fifth of the window's length from an end weighs 0.9 there and 1 a fifth on,
/// linearly. Of several the one nearest to the centre counts. The first place is the allowed one
/// nearest to the centre itself when two are equally near, or when the best holds no more than 0.1
/// % more. \a sums are of salience along the axis, one for each column or row of the map, 0 to 2³¹
/// each; the window may begin where \a allowed says.
QVector<Place> bestPlaces(
    const QList<long long>& sums, const Axis& axis, const QVector<Span>& allowed, int most);

} // namespace vx::crop
