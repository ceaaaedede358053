#include "Measure.h"

#include <VXRegionOfInterest/VXSalienzMaximizerHorizontal.h>
#include <VXRegionOfInterest/VXSalienzMaximizerVertical.h>

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace vx::crop {

namespace {

using Sums = QList<long long>;

// The middle of what sums hold, from 0 to their number; of nothing, the middle of all.
double centreOf(const Sums& sums)
{
    double moment = 0;
    double all = 0;
    for (int i = 0; i < sums.size(); ++i) {
        const auto sum = static_cast<double>(sums.at(i));
        moment += sum * (i + 0.5);
        all += sum;
    }
    return all > 0 ? moment / all : sums.size() / 2.0;
}

QPointF centreOf(const QImage& map, const QRect& part)
{
    // A view of the part; nothing is copied.
    const QImage view(map.constScanLine(part.top()) + std::ptrdiff_t { 4 } * part.left(),
        part.width(), part.height(), map.bytesPerLine(), map.format());
    return { (part.left() + centreOf(VXSalienzMaximizerHorizontal().sums(view))) / map.width(),
        (part.top() + centreOf(VXSalienzMaximizerVertical().sums(view))) / map.height() };
}

double shareOf(const Sums& sums, int first, int count)
{
    const auto sum = [&](int from, int number) {
        return std::accumulate(sums.begin() + from, sums.begin() + from + number, 0LL);
    };
    const long long all = sum(0, sums.size());
    return all == 0 ? 0.0 : static_cast<double>(sum(first, count)) / static_cast<double>(all);
}

} // namespace

Measure::Measure(const QImage& salienceMap, const Direction& windowDirection)
    : map(salienceMap)
    , direction(windowDirection)
    , sums(direction.sumsOf(map))
{
}

VXCropWindow Measure::at(int start, VXCropReason reason) const
{
    const QRect window = direction.windowAt(start);
    return { window, within(window, centreOf(map, direction.partOf(map.size(), start))), reason,
        heldAt(start), heldAt(direction.axis.centreStart()) };
}

// A pixel of the map may reach beyond a window that is thinner than it.
QPointF Measure::within(const QRect& window, const QPointF& point) const
{
    const auto clamped = [](double share, double first, double count, double all) {
        return std::clamp(share, first / all, (first + count) / all);
    };
    const QSize& all = direction.picture;
    return { clamped(point.x(), window.x(), window.width(), all.width()),
        clamped(point.y(), window.y(), window.height(), all.height()) };
}

double Measure::heldAt(int start) const
{
    const QRect part = direction.partOf(map.size(), start);
    return direction.isAcross ? shareOf(sums, part.left(), part.width())
                              : shareOf(sums, part.top(), part.height());
}

} // namespace vx::crop
