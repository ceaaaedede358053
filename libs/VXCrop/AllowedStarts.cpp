#include "AllowedStarts.h"

#include <algorithm>
#include <limits>

namespace vx::crop {

namespace {

// Neighbouring spans become one.
void append(QVector<Span>& spans, const Span& span)
{
    if (!spans.isEmpty() && spans.last().last + 1 >= span.first)
        spans.last().last = std::max(spans.last().last, span.last);
    else
        spans.append(span);
}

// How many pixels of areas the window has, counted once for each area. A double, because there may be more
// than 64 bits can count.
double pixelsWithin(const Axis& axis, int start, const QVector<Area>& areas)
{
    double pixels = 0;
    for (const Area& area : areas) {
        const int first = std::max(start, area.extent.first);
        const int last = std::min(start + axis.windowLength - 1, area.extent.last);
        pixels += std::max(last - first + 1, 0) * static_cast<double>(area.breadth);
    }
    return pixels;
}

} // namespace

QVector<Span> startsThatKeep(const Axis& axis, const QVector<Span>& areas)
{
    // For each area the starts at which the window holds it.
    QVector<Span> holding;
    for (const Span& area : areas) {
        const int before = area.last + 1 - axis.windowLength;
        const auto [first, last] = std::minmax(before, area.first);
        holding.append(
            { std::clamp(first, 0, axis.lastStart()), std::clamp(last, 0, axis.lastStart()) });
    }
    // Between neighbouring borders of those, the number of areas held is the same.
    QVector<int> borders { 0, axis.lastStart() + 1 };
    for (const Span& span : holding)
        borders << span.first << span.last + 1;
    std::sort(borders.begin(), borders.end());
    borders.erase(std::unique(borders.begin(), borders.end()), borders.end());

    QVector<Span> best;
    std::ptrdiff_t most = -1;
    for (int i = 0; i + 1 < borders.size(); ++i) {
        const Span part { borders.at(i), borders.at(i + 1) - 1 };
        const std::ptrdiff_t held = std::count_if(holding.begin(), holding.end(),
            [&](const Span& span) { return span.first <= part.first && part.last <= span.last; });
        if (held > most)
            best.clear();
        if (held >= most)
            best.append(part);
        most = std::max(most, held);
    }
    return best;
}

QVector<Span> startsThatAvoid(
    const Axis& axis, const QVector<Span>& allowed, const QVector<Area>& areas)
{
    QVector<Span> best;
    double fewest = std::numeric_limits<double>::infinity();
    for (const Span& span : allowed) {
        // Between these, what the window has of areas grows or shrinks evenly.
        QVector<int> bends { span.first, span.last };
        for (const Area& area : areas) {
            for (const int bend : { area.extent.first - axis.windowLength, area.extent.first,
                     area.extent.last + 1 - axis.windowLength, area.extent.last + 1 })
                bends.append(std::clamp(bend, span.first, span.last));
        }
        std::sort(bends.begin(), bends.end());
        int before = bends.first();
        for (const int bend : bends) {
            const double pixels = pixelsWithin(axis, bend, areas);
            if (pixels < fewest)
                best.clear();
            if (pixels <= fewest) {
                const bool isEven = pixels == pixelsWithin(axis, before, areas);
                append(best, { isEven ? before : bend, bend });
            }
            fewest = std::min(fewest, pixels);
            before = bend;
        }
    }
    return best;
}

} // namespace vx::crop
