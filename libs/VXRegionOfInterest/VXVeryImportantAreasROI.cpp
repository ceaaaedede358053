#include "VXVeryImportantAreasROI.h"

#include <QMessageLogger>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace {

// Hosts filter messages by where they come from, so the warning names a fixed place.
void warnAboutUnscaledAreas()
{
    const QMessageLogger logger("libs/VXRegionOfInterest/VXVeryImportantAreasROI", 49,
        "virtual QImage VXVeryImportantAreasROI::evaluate(const QImage &)");
    logger.warning("%s", "TODO: umrechnen der Größe! (worldmatrix berechnen)");
}

// A coordinate that Qt can paint with; beyond it, shapes lie outside any image anyway.
int paintable(qint64 coordinate)
{
    constexpr qint64 limit = 1 << 29;
    return static_cast<int>(std::clamp(coordinate, -limit, limit));
}

// Twice as wide and as high as the area, around its centre, in integers that truncate toward zero.
QRect haloOf(const QRect& area)
{
    const qint64 width = qint64 { area.right() } - area.left() + 1;
    const qint64 height = qint64 { area.bottom() } - area.top() + 1;
    const qint64 centreX = (qint64 { area.left() } + area.right()) / 2;
    const qint64 centreY = (qint64 { area.top() } + area.bottom()) / 2;
    return QRect(paintable(centreX - width), paintable(centreY - height), paintable(2 * width),
        paintable(2 * height));
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
    QImage map(image.size(), QImage::Format_ARGB32);
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
