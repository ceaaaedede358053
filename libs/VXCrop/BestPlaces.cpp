#include "BestPlaces.h"

#include "SoftWindow.h"

#include <algorithm>
#include <cstdlib>

namespace vx::crop {

namespace {

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

// Places on the map's grid, moved into the span where it is narrower than a step of the grid.
QVector<Candidate> candidatesIn(const QVector<Span>& allowed, const SoftWindow& window)
{
    QVector<Candidate> candidates;
    for (const Span& span : allowed) {
        const int last = window.gridStartOf(span.last);
        for (int gridStart = window.gridStartOf(span.first); gridStart <= last; ++gridStart) {
            const int start = std::clamp(window.pictureStartOf(gridStart), span.first, span.last);
            candidates.append({ start, window.heldFrom(gridStart) });
        }
    }
    return candidates;
}

// The best of the candidates that the filter lets through: nothing when it lets none through.
struct Best {
    const Candidate* candidate = nullptr;
    bool isTied = false; // with one as far from the centre
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

} // namespace

QVector<Place> bestPlaces(
    const QList<long long>& sums, const Axis& axis, const QVector<Span>& allowed, int most)
{
    const SoftWindow window(sums, axis);
    const QVector<Candidate> candidates = candidatesIn(allowed, window);
    const int centre = nearestToCentre(axis, allowed);
    QVector<Place> places;
    if (most > 0)
        places.append(
            firstPlace(candidates, { centre, window.heldFrom(window.gridStartOf(centre)) }));
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
