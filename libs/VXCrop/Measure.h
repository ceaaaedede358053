#pragma once

#include "Direction.h"
#include "VXCrop.h"

#include <QImage>
#include <QList>
#include <QPointF>
#include <QRect>
#include <QSize>

namespace vx::crop {

/// What the map says of windows that lie somewhere. The map and the direction must outlive it.
class Measure {
public:
    /// Of \a salienceMap, in a format of 32 bits per pixel, along \a windowDirection.
    Measure(const QImage& salienceMap, const Direction& windowDirection);

    /// The sums of the map's columns or rows.
    const QList<long long>& alongAxis() const { return sums; }

    /// The size of the map.
    QSize mapSize() const { return map.size(); }

    /// The window that begins at \a start, and what it holds.
    VXCropWindow at(int start, VXCropReason reason) const;

private:
    QPointF within(const QRect& window, const QPointF& point) const;
    double heldAt(int start) const;

    const QImage& map;
    const Direction& direction;
    QList<long long> sums;
};

} // namespace vx::crop
