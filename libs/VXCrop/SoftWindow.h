#pragma once

#include "Axis.h"

#include <QList>
#include <QVector>

namespace vx::crop {

/// What a window with soft ends holds of a map, wherever on the map's grid it begins: the salience along the axis,
/// weighted 0.9 at an end of the window and 1 from a fifth of its length on, linearly in between.
class SoftWindow {
public:
    /// \param gridSums the salience of each column or row of the map, 0 to 2³¹ each; it must outlive the object.
    /// \param windowAxis the picture's axis and the window's length on it.
    SoftWindow(const QList<long long>& gridSums, const Axis& windowAxis);

    /// The weighted sum of a window that begins at column or row \a gridStart of the map, times 20 lengths of the
    /// window on the map's grid: a whole number.
    qint64 heldFrom(int gridStart) const;

    /// The place on the map's grid for a start in picture pixels. The first starts are each other's, and so are the last
    /// ones.
    int gridStartOf(int pictureStart) const;

    /// The start in picture pixels for a place on the map's grid.
    int pictureStartOf(int gridStart) const;

private:
    int lastGridStart() const { return positions - length; }

    const QList<long long>& sums;
    Axis axis;
    int positions;
    int length; ///< of the window, on the grid
    QVector<qint64> prefixSums;
};

} // namespace vx::crop
