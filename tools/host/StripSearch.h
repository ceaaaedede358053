#pragma once

#include <QList>
#include <QVector>

namespace host {

/// A run of pixels along one axis of a picture, or of places where a strip may begin.
struct Span {
    int first;
    int last; ///< included
};

/// Where along an axis a strip goes, in picture pixels.
struct StripPlace {
    int start;
    bool isCentre; ///< no other place holds noticeably more
};

/// One axis of a picture and the strip to be placed on it.
struct StripAxis {
    int pictureLength; ///< above 0
    int stripLength; ///< 1 to pictureLength

    int lastStart() const { return pictureLength - stripLength; }
    int centreStart() const { return lastStart() / 2; }
};

/// number · numerator / denominator, rounded to the nearest integer. \pre all are at least 0, and
/// the denominator is above 0.
int scaled(qint64 number, qint64 numerator, qint64 denominator);

/// The starts at which the strip holds as many of \a areas as it can; of an area longer than the
/// strip, those at which the strip lies within it. All starts when there are no areas.
/// \return spans in ascending order, at least one, all within 0 to axis.lastStart().
QVector<Span> startsThatKeep(const StripAxis& axis, const QVector<Span>& areas);

/// The start at which the strip holds most salience.
///
/// Of several the one nearest to the centre counts, and the centre itself when two are equally near,
/// or when the best holds less than a thousandth more than the centre does.
/// \param sums salience along the axis, one entry for each column or row of the map.
/// \param allowed where the strip may begin, as from startsThatKeep().
StripPlace bestPlace(
    const QList<long long>& sums, const StripAxis& axis, const QVector<Span>& allowed);

} // namespace host
