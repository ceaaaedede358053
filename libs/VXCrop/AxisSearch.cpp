#include "AxisSearch.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace vx::crop {

namespace {

// What a window holds of the map, for each place on the map's grid where it may begin.
class WeightedSums {
public:
    WeightedSums(const QList<long long>& gridSums, const Axis& windowAxis)
        : sums(gridSums)
        , axis(windowAxis)
        , positions(sums.size())
        , length(std::clamp(scaled(axis.windowLength, positions, axis.pictureLength), 1, positions))
    {
        cumulative.append(0);
        for (const long long sum : sums)
            cumulative.append(cumulative.last() + sum);
    }

    // Of n positions in the window, the one k from an end has its centre at a share of (k + 1/2) / n of the window,
    // so it weighs 0.9 + (k + 1/2) / 2 n, at most 1. Times 20 n that is 20 n less 2 n - 10 k - 5, where
    // that is above 0.
    qint64 heldFrom(int gridStart) const
    {
        const int last = gridStart + length - 1;
        qint64 held = 20LL * length * (cumulative.at(last + 1) - cumulative.at(gridStart));
        for (int k = 0; 10 * k + 5 < 2 * length; ++k)
            held -= (2 * length - 10 * k - 5) * (sums.at(gridStart + k) + sums.at(last - k));
        return held;
    }

    // The first starts correspond to each other, and so do the last ones.
    int gridStartOf(int pictureStart) const
    {
        return axis.lastStart() == 0 ? 0 : scaled(pictureStart, lastGridStart(), axis.lastStart());
    }

    int pictureStartOf(int gridStart) const
    {
        return lastGridStart() == 0 ? axis.centreStart()
                                    : scaled(gridStart, axis.lastStart(), lastGridStart());
    }

private:
    int lastGridStart() const { return positions - length; }

    const QList<long long>& sums;
    const Axis& axis;
    int positions;
    int length; // of the window, on the grid
    QVector<qint64> cumulative;
};

// A place and what the window holds there.
struct Candidate {
    int start;
    qint64 held;
};

// The allowed start nearest to the centre.
int nearestToCentre(const Axis& axis, const QVector<Span>& allowed)
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

// Places on the map's grid, clamped to a span that is narrower than a step of the grid.
QVector<Candidate> candidatesIn(const QVector<Span>& allowed, const WeightedSums& sums)
{
    QVector<Candidate> candidates;
    for (const Span& span : allowed) {
        const int last = sums.gridStartOf(span.last);
        for (int gridStart = sums.gridStartOf(span.first); gridStart <= last; ++gridStart) {
            const int start = std::clamp(sums.pictureStartOf(gridStart), span.first, span.last);
            candidates.append({ start, sums.heldFrom(gridStart) });
        }
    }
    return candidates;
}

// The best of the candidates that a predicate accepts; none where it accepts none.
struct Best {
    const Candidate* candidate = nullptr;
    bool isTied = false; // with another that is as far from the centre
};

template <typename Filter>
Best bestOf(const QVector<Candidate>& candidates, int centre, const Filter& mayBe)
{
    Best best;
    for (const Candidate& candidate : candidates) {
        if (!mayBe(candidate))
            continue;
        const qint64 more = best.candidate == nullptr ? 1 : candidate.held - best.candidate->held;
        const int nearer = best.candidate == nullptr
            ? 0
            : std::abs(best.candidate->start - centre) - std::abs(candidate.start - centre);
        if (more > 0 || (more == 0 && nearer > 0))
            best = { &candidate, false };
        else if (more == 0 && nearer == 0 && candidate.start != best.candidate->start)
            best.isTied = true;
    }
    return best;
}

Place firstPlace(const QVector<Candidate>& candidates, const Candidate& centre)
{
    const Best best = bestOf(candidates, centre.start, [](const Candidate&) { return true; });
    const bool isNoticeablyMore
        = best.candidate != nullptr && best.candidate->held > centre.held + centre.held / 1000;
    if (best.isTied || !isNoticeablyMore)
        return { centre.start, true };
    return { best.candidate->start, false };
}

// Appends a span, merged with the last one where they touch.
void append(QVector<Span>& spans, const Span& span)
{
    if (!spans.isEmpty() && spans.last().last + 1 >= span.first)
        spans.last().last = std::max(spans.last().last, span.last);
    else
        spans.append(span);
}

// How many pixels of areas the window has, counted once for each area. They may be more than 64 bits can count, so the
// sum is a double.
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

int scaled(qint64 number, qint64 numerator, qint64 denominator)
{
    return static_cast<int>((2 * number * numerator + denominator) / (2 * denominator));
}

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

QVector<Place> bestPlaces(
    const QList<long long>& sums, const Axis& axis, const QVector<Span>& allowed, int most)
{
    const WeightedSums weighted(sums, axis);
    const QVector<Candidate> candidates = candidatesIn(allowed, weighted);
    const int centre = nearestToCentre(axis, allowed);
    QVector<Place> places;
    if (most > 0)
        places.append(
            firstPlace(candidates, { centre, weighted.heldFrom(weighted.gridStartOf(centre)) }));
    while (places.size() < most) {
        const Best next = bestOf(candidates, centre, [&](const Candidate& candidate) {
            return std::all_of(places.begin(), places.end(), [&](const Place& place) {
                return 2LL * std::abs(candidate.start - place.start) > axis.windowLength;
            });
        });
        if (next.candidate == nullptr)
            break;
        places.append({ next.candidate->start, false });
    }
    return places;
}

} // namespace vx::crop
