#pragma once

#include <QList>
#include <QVector>

/// \file
/// Where a window goes along the axis on which it has room to move.

namespace vx::crop {

/// A run of pixels along an axis of a picture, or of places where a window may begin.
struct Span {
    int first; ///< the first of them
    int last; ///< the last, included
};

/// An axis of a picture and the window to be placed on it, in picture pixels.
struct Axis {
    int pictureLength; ///< above 0
    int windowLength; ///< 1 to pictureLength

    /// The last place where the window may begin.
    int lastStart() const { return pictureLength - windowLength; }
    /// Where the window in the middle begins.
    int centreStart() const { return lastStart() / 2; }
};

/// An area of a picture that the window may overlap.
struct Area {
    Span extent; ///< along the axis
    int breadth; ///< across the axis, in pixels
};

/// A place for the window.
struct Place {
    int start; ///< in picture pixels
    bool isCentre; ///< no other place holds noticeably more
};

/// number · numerator / denominator, rounded to the nearest integer. \pre all are at least 0, and
/// the denominator is above 0.
int scaled(qint64 number, qint64 numerator, qint64 denominator);

/// The starts at which the window holds as many of \a areas as it can; of an area longer than the
/// window, those at which the window lies within it. All starts when there are no areas.
/// \return spans in ascending order, at least one, all within 0 to axis.lastStart().
QVector<Span> startsThatKeep(const Axis& axis, const QVector<Span>& areas);

/// Those of the \a allowed starts at which the window has the fewest pixels of \a areas, counted
/// once for each area.
/// \return spans in ascending order, at least one.
QVector<Span> startsThatAvoid(
    const Axis& axis, const QVector<Span>& allowed, const QVector<Area>& areas);

/// The places where the window holds most salience, at most \a most of them, the best first. They overlap by
/// less than half of the window.
///
/// What lies within a fifth of the window's length from an end counts less: linearly from 0.9 at the end to 1 a fifth
/// further in. Of several best places, the one nearest to the centre comes first. The first place is the allowed one
/// nearest to the centre itself when two are equally near, or when the best holds no more than 0.1
/// % more. \a sums are of salience along the axis, one for each column or row of the map, 0 to 2³¹
/// each; the window may begin where \a allowed says.
QVector<Place> bestPlaces(
    const QList<long long>& sums, const Axis& axis, const QVector<Span>& allowed, int most);

} // namespace vx::crop
