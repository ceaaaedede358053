#include "Constraints.h"

#include "host/HostError.h"

#include <cmath>

namespace host {

namespace {

QVector<QRect> within(const QSize& picture, const QVector<Area>& areas, const QString& path)
{
    QVector<QRect> parts;
    for (const Area& area : areas) {
        const QRect part = QRect(QPoint(), picture) & area.in(picture);
        if (part.isEmpty())
            throw HostError(ExitCode::Usage, path,
                QStringLiteral("%1 lies outside the picture of %2 x %3 pixels")
                    .arg(area.text)
                    .arg(picture.width())
                    .arg(picture.height()),
                QStringLiteral("give left, top, width and height in pixels or percent"));
        parts.append(part);
    }
    return parts;
}

} // namespace

double Length::in(int side) const { return isPercent ? value * side / 100 : value; }

QRect Area::in(const QSize& picture) const
{
    const double x = left.in(picture.width());
    const double y = top.in(picture.height());
    const auto firstColumn = static_cast<int>(std::floor(x));
    const auto firstRow = static_cast<int>(std::floor(y));
    const auto lastColumn = static_cast<int>(std::ceil(x + width.in(picture.width()))) - 1;
    const auto lastRow = static_cast<int>(std::ceil(y + height.in(picture.height()))) - 1;
    return QRect(QPoint(firstColumn, firstRow), QPoint(lastColumn, lastRow));
}

VXCropConstraints within(const QSize& picture, const Constraints& constraints, const QString& path)
{
    VXCropConstraints result;
    result.keep = within(picture, constraints.keep, path);
    result.avoid = within(picture, constraints.avoid, path);
    result.focus = constraints.focus;
    return result;
}

} // namespace host
