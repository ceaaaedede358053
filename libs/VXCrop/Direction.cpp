#include "Direction.h"

#include <VXRegionOfInterest/VXSalienzMaximizerHorizontal.h>
#include <VXRegionOfInterest/VXSalienzMaximizerVertical.h>

#include <algorithm>

namespace vx::crop {

Direction::Direction(const QSize& pictureSize, const QSize& window)
    : isAcross(window.width() < pictureSize.width())
    , picture(pictureSize)
    , axis(isAcross ? Axis { picture.width(), window.width() }
                    : Axis { picture.height(), window.height() })
{
}

Span Direction::extentOf(const QRect& area) const
{
    return isAcross ? Span { area.left(), area.right() } : Span { area.top(), area.bottom() };
}

QRect Direction::windowAt(int start) const
{
    return isAcross ? QRect(start, 0, axis.windowLength, picture.height())
                    : QRect(0, start, picture.width(), axis.windowLength);
}

QList<long long> Direction::sumsOf(const QImage& map) const
{
    return isAcross ? VXSalienzMaximizerHorizontal().sums(map)
                    : VXSalienzMaximizerVertical().sums(map);
}

QRect Direction::partOf(const QSize& map, int start) const
{
    const int positions = isAcross ? map.width() : map.height();
    const int first = std::min(scaled(start, positions, axis.pictureLength), positions - 1);
    const int end = std::clamp(
        scaled(start + axis.windowLength, positions, axis.pictureLength), first + 1, positions);
    return isAcross ? QRect(first, 0, end - first, map.height())
                    : QRect(0, first, map.width(), end - first);
}

} // namespace vx::crop
