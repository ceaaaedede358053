#include "Constraints.h"

#include "host/HostError.h"

#include <QRegularExpression>
#include <QStringList>

#include <array>
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

Length lengthOf(const QString& text)
{
    QString digits = text;
    const bool isPercent = digits.endsWith(QLatin1Char('%'));
    if (isPercent)
        digits.chop(1);
    return { digits.toDouble(), isPercent };
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

Area parseArea(const QString& text, const QString& option)
{
    // Pixels are whole, shares are not.
    static const QRegularExpression pattern(
        QStringLiteral(R"(\A(-?[0-9]{1,9}|-?[0-9]{1,3}(?:\.[0-9]{1,4})?%)(?:,(?1)){3}\z)"));
    const QStringList parts = text.split(QLatin1Char(','));
    Area area { lengthOf(parts.value(0)), lengthOf(parts.value(1)), lengthOf(parts.value(2)),
        lengthOf(parts.value(3)), QStringLiteral("%1 %2").arg(option, text) };
    if (!pattern.match(text).hasMatch() || !(area.width.value > 0) || !(area.height.value > 0))
        throw HostError(ExitCode::Usage, area.text, QStringLiteral("not an area"),
            QStringLiteral("write left, top, width and height in pixels or percent, such as "
                           "10,20,300,200"));
    return area;
}

QPointF parsePoint(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(','));
    std::array<bool, 2> areNumbers {};
    const QPointF point(
        parts.value(0).toDouble(&areNumbers.at(0)), parts.value(1).toDouble(&areNumbers.at(1)));
    const bool isInside = point.x() >= 0 && point.x() <= 1 && point.y() >= 0 && point.y() <= 1;
    if (parts.size() != 2 || !areNumbers.at(0) || !areNumbers.at(1) || !isInside)
        throw HostError(ExitCode::Usage, QStringLiteral("--focus %1").arg(text),
            QStringLiteral("not a point"),
            QStringLiteral("write two numbers from 0 to 1, such as 0.5,0.33"));
    return point;
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
