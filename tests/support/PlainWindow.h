#pragma once

#include <QImage>
#include <QPainter>
#include <QSize>

#include <algorithm>
#include <cstdlib>
#include <vector>

/// \file
/// Where a window of a map goes, in the plainest way.

namespace support {

/// A black map with some white columns.
inline QImage mapWithBrightColumns(const QSize& size, int first, int count)
{
    QImage map(size, QImage::Format_RGB32);
    map.fill(Qt::black);
    QPainter(&map).fillRect(first, 0, count, size.height(), Qt::white);
    return map;
}

/// What a window of so many columns holds, by the definition; weights are times 20 n.
inline qint64 plainHeld(const std::vector<qint64>& columns, int length, int start)
{
    qint64 sum = 0;
    for (int k = 0; k < length; ++k) {
        const int fromEnd = std::min(k, length - 1 - k);
        const bool isNearEnd = (fromEnd + 0.5) / length < 0.2;
        const int weight = isNearEnd ? 18 * length + 10 * fromEnd + 5 : 20 * length;
        sum += weight * *(columns.begin() + start + k);
    }
    return sum;
}

/// Where it goes.
inline int plainStart(const std::vector<qint64>& columns, int length)
{
    const int count = static_cast<int>(columns.size());
    const int centre = (count - length) / 2;
    qint64 most = 0;
    for (int start = 0; start + length <= count; ++start)
        most = std::max(most, plainHeld(columns, length, start));
    if (1000 * most <= 1001 * plainHeld(columns, length, centre))
        return centre;
    std::vector<int> best;
    for (int start = 0; start + length <= count; ++start) {
        if (plainHeld(columns, length, start) == most)
            best.push_back(start);
    }
    std::sort(best.begin(), best.end(),
        [=](int a, int b) { return std::abs(a - centre) < std::abs(b - centre); });
    const bool isTied = best.size() > 1 && std::abs(best[0] - centre) == std::abs(best[1] - centre);
    return isTied ? centre : best[0];
}

} // namespace support
