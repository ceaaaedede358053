#include "VXVeryImportantAreasROI.h"

#include "kernels/image/ImageMemory.h"

#include <QDebug>
#include <QMessageLogger>
#include <QPainter>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <utility>

namespace {

// Hosts filter messages by their origin, so the warning names a fixed place.
void warnAboutUnscaledAreas()
{
    const QMessageLogger logger("libs/VXRegionOfInterest/VXVeryImportantAreasROI", 49,
        "virtual QImage VXVeryImportantAreasROI::evaluate(const QImage &)");
    logger.warning().noquote() << QStringLiteral(
        "TODO: umrechnen der Größe! (worldmatrix berechnen)");
}

// The first and last pixel along one axis.
struct Span {
    qint64 first;
    qint64 last;
};

// Twice as long as the area, around its centre, in integers that truncate toward zero.
Span haloOf(const Span& area)
{
    const qint64 length = area.last - area.first + 1;
    const qint64 centre = (area.first + area.last) / 2;
    return { centre - length, centre + length - 1 };
}

// Where spans that an int cannot hold are cut off.
constexpr qint64 limit = (1 << 30) - 1;

// The span, cut off where an int cannot hold its ends or its length.
std::pair<int, int> paintable(const Span& span)
{
    const bool fits = span.first >= INT_MIN && span.first <= INT_MAX && span.last >= INT_MIN
        && span.last <= INT_MAX && std::abs(span.last - span.first + 1) <= INT_MAX;
    const auto end
        = [fits](qint64 pixel) { return fits ? pixel : std::clamp(pixel, -limit, limit); };
    return { static_cast<int>(end(span.first)), static_cast<int>(end(span.last)) };
}

QRect haloOf(const QRect& area)
{
    const auto [left, right] = paintable(haloOf(Span { area.left(), area.right() }));
    const auto [top, bottom] = paintable(haloOf(Span { area.top(), area.bottom() }));
    return QRect(QPoint(left, top), QPoint(right, bottom));
}

} // namespace

VXVeryImportantAreasROI::VXVeryImportantAreasROI(QList<QRect> importantAreas, const QSize& size)
    : areas(std::move(importantAreas))
    , areasSize(size)
{
}

VXVeryImportantAreasROI::~VXVeryImportantAreasROI() = default;

QImage VXVeryImportantAreasROI::evaluate(const QImage& image)
{
    QImage map = vx::kernels::uninitializedImage(image.size(), QImage::Format_ARGB32);
    map.fill(QColor(Qt::black).rgba());
    if (areasSize != image.size())
        warnAboutUnscaledAreas();
    if (map.isNull()) // Qt warns when it is asked to paint on nothing
        return map;

    QPainter painter(&map);
    painter.setPen(Qt::gray);
    painter.setBrush(QBrush(Qt::gray, Qt::SolidPattern));
    for (const QRect& area : std::as_const(areas))
        painter.drawEllipse(haloOf(area));

    painter.setPen(Qt::white);
    painter.setBrush(QBrush(Qt::white, Qt::SolidPattern));
    for (const QRect& area : std::as_const(areas))
        painter.drawRects(&area, 1);
    painter.end();
    return map;
}
