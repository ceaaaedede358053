#include "Faces.h"

#include <algorithm>
#include <numeric>
#include <optional>

namespace vx::crop {

namespace {

constexpr int facesPerMap = 5; // that weigh as much together as all of the map

// For each column or row of a map, how many pixels have their centres in the ellipse of a face.
QVector<int> pixelsOf(const QRect& face, const Direction& direction, const QSize& map)
{
    const double radiusX = face.width() / 2.0;
    const double radiusY = face.height() * 0.75; // with chin and shoulders, half a face more
    const double centreX = face.left() + radiusX;
    const double centreY = face.top() + radiusY;
    const double columnWidth = static_cast<double>(direction.picture.width()) / map.width();
    const double rowHeight = static_cast<double>(direction.picture.height()) / map.height();
    QVector<int> counts(direction.isAcross ? map.width() : map.height(), 0);
    for (int y = 0; y < map.height(); ++y) {
        const double down = ((y + 0.5) * rowHeight - centreY) / radiusY;
        for (int x = 0; x < map.width() && down * down <= 1; ++x) {
            const double across = ((x + 0.5) * columnWidth - centreX) / radiusX;
            if (across * across + down * down <= 1)
                ++counts[direction.isAcross ? x : y];
        }
    }
    return counts;
}

// The column or row of a map that the middle of a face is in.
int middleOf(const QRect& face, const Direction& direction, int positions)
{
    const Span extent = direction.extentOf(face);
    const qint64 middle = (qint64 { extent.first } + extent.last) / 2;
    return static_cast<int>(middle * positions / direction.axis.pictureLength);
}

// Whether a window that begins at \a start has at least three tenths of the extent of a face.
bool hasMuchOf(const Span& face, int start, int windowLength)
{
    const int first = std::max(start, face.first);
    const int last = std::min(start + windowLength - 1, face.last);
    return 10LL * (last - first + 1) >= 3LL * (face.last - face.first + 1);
}

// The start in both \a room and \a allowed that is nearest to \a start.
std::optional<int> nearestStart(int start, const Span& room, const QVector<Span>& allowed)
{
    std::optional<int> nearest;
    for (const Span& span : allowed) {
        const Span both { std::max(room.first, span.first), std::min(room.last, span.last) };
        if (both.first > both.last)
            continue;
        const int candidate = std::clamp(start, both.first, both.last);
        if (!nearest || std::abs(candidate - start) < std::abs(*nearest - start))
            nearest = candidate;
    }
    return nearest;
}

} // namespace

void addFaces(QList<long long>& sums, const Direction& direction, const QSize& map,
    const QVector<QRect>& faces)
{
    const long long held = std::accumulate(sums.begin(), sums.end(), 0LL);
    for (const QRect& face : faces) {
        QVector<int> counts = pixelsOf(face, direction, map);
        if (std::all_of(counts.begin(), counts.end(), [](int count) { return count == 0; }))
            counts[middleOf(face, direction, counts.size())] = 1;
        const long long pixels = std::accumulate(counts.begin(), counts.end(), 0LL);
        // A map that holds nothing leaves the choice to the faces.
        const long long whole = held > 0 ? held : facesPerMap * pixels;
        for (int i = 0; i < counts.size(); ++i)
            sums[i] += whole * counts.at(i) / (facesPerMap * pixels);
    }
}

int startThatShows(const Direction& direction, int start, const QVector<QRect>& faces,
    const QVector<Span>& allowed)
{
    QVector<QRect> largestFirst = faces;
    std::stable_sort(largestFirst.begin(), largestFirst.end(), [](const QRect& a, const QRect& b) {
        return qint64 { a.width() } * a.height() > qint64 { b.width() } * b.height();
    });
    const int length = direction.axis.windowLength;
    Span room { 0, direction.axis.lastStart() };
    for (const QRect& face : largestFirst) {
        const Span extent = direction.extentOf(face);
        if (!hasMuchOf(extent, start, length))
            continue;
        const Span whole { std::max(room.first, extent.last + 1 - length),
            std::min(room.last, extent.first) };
        const std::optional<int> shifted = nearestStart(start, whole, allowed);
        if (!shifted)
            continue;
        room = whole;
        start = *shifted;
    }
    return start;
}

} // namespace vx::crop
