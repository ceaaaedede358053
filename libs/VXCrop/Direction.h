#pragma once

#include "Axis.h"

#include <QImage>
#include <QList>
#include <QRect>
#include <QSize>

namespace vx::crop {

/// The axis on which a window has room to move. It fills the other one.
struct Direction {
    /// For a window of size \a window in a picture of size \a pictureSize, which it fills along one side at least.
    Direction(const QSize& pictureSize, const QSize& window);

    /// What an area covers of the axis.
    Span extentOf(const QRect& area) const;

    /// The window that begins at \a start.
    QRect windowAt(int start) const;

    /// The sums of a map's columns or rows, along the axis.
    QList<long long> sumsOf(const QImage& map) const;

    /// The part of a map of size \a map that is within the window at a start; at least one column or row.
    QRect partOf(const QSize& map, int start) const;

    bool isAcross; ///< the window moves to the left and right, not up and down
    QSize picture; ///< in pixels
    Axis axis; ///< the lengths along it
};

} // namespace vx::crop
