#include "StripSearch.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace host {

namespace {

// What a strip holds of the map, wherever on the map's grid it begins.
class StripSums {
public:
    StripSums(const QList<long long>& sums, const StripAxis& stripAxis)
        : axis(stripAxis)
        , positions(sums.size())
        , length(std::clamp(scaled(axis.stripLength, positions, axis.pictureLength), 1, positions))
    {
        cumulative.append(0);
        for (const long long sum : sums)
            cumulative.append(cumulative.last() + sum);
    }

    int gridStarts() const { return positions - length + 1; }

    long long heldFrom(int gridStart) const
    {
        return cumulative.at(gridStart + length) - cumulative.at(gridStart);
    }

    int gridStartOf(int pictureStart) const
    {
        return std::min(scaled(pictureStart, positions, axis.pictureLength), positions - length);
    }

    int pictureStartOf(int gridStart) const
    {
        return std::min(scaled(gridStart, axis.pictureLength, positions), axis.lastStart());
    }

private:
    const StripAxis& axis;
    int positions;
    int length; // of the strip, on the grid
    QList<long long> cumulative;
};

// A place and what the strip holds there.
struct Candidate {
    int start;
    long long held;
};

// The allowed start nearest to the centre.
int nearestToCentre(const StripAxis& axis, const QVector<Span>& allowed)
{
    const int centre = axis.centreStart();
    int nearest = allowed.first().first;
    for (const Span& span : allowed) {
        const int start = std::clamp(centre, span.first, span.last);
        if (std::abs(start - centre) < std::abs(nearest - centre))
            nearest = start;
    }
    return nearest;
}

// Places on the map's grid, moved into the span where it is narrower than a step of the grid.
QVector<Candidate> candidatesIn(const Span& span, const StripSums& sums)
{
    QVector<Candidate> candidates;
    const int first = sums.gridStartOf(span.first);
    const int last = sums.gridStartOf(span.last);
    for (int gridStart = first; gridStart <= last; ++gridStart) {
        const int start = std::clamp(sums.pictureStartOf(gridStart), span.first, span.last);
        candidates.append({ start, sums.heldFrom(gridStart) });
    }
    return candidates;
}

bool isNoticeablyMore(long long held, long long thanThis)
{
    return held > thanThis + thanThis / 1000;
}

} // namespace

int scaled(qint64 number, qint64 numerator, qint64 denominator)
{
    return static_cast<int>((2 * number * numerator + denominator) / (2 * denominator));
}

QVector<Span> startsThatKeep(const StripAxis& axis, const QVector<Span>& areas)
{
    // For each area the starts at which the strip holds it.
    QVector<Span> holding;
    for (const Span& area : areas) {
        const int before = area.last + 1 - axis.stripLength;
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

StripPlace bestPlace(
    const QList<long long>& sums, const StripAxis& axis, const QVector<Span>& allowed)
{
    const StripSums strips(sums, axis);
    const int centre = nearestToCentre(axis, allowed);
    const long long heldInCentre = strips.heldFrom(strips.gridStartOf(centre));
    Candidate best { centre, heldInCentre };
    bool isTied = false;
    for (const Span& span : allowed) {
        for (const Candidate& candidate : candidatesIn(span, strips)) {
            const int distance = std::abs(candidate.start - centre);
            const int bestDistance = std::abs(best.start - centre);
            const bool isEqual = candidate.held == best.held && candidate.start != best.start;
            if (candidate.held > best.held || (isEqual && distance < bestDistance)) {
                best = candidate;
                isTied = false;
            } else if (isEqual && distance == bestDistance) {
                isTied = true;
            }
        }
    }
    if (isTied || !isNoticeablyMore(best.held, heldInCentre))
        return { centre, true };
    return { best.start, false };
}

} // namespace host
