#include "Shapes.h"

#include "host/HostError.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace vxroi {

namespace {

using host::CropShape;
using host::ExitCode;
using host::HostError;

// A decimal number in ten-thousandths, which represent four decimals exactly.
int tenThousandths(const QString& whole, const QString& fraction)
{
    return (whole + fraction.leftJustified(4, QLatin1Char('0'))).toInt();
}

[[noreturn]] void throwNoSize(const QString& text)
{
    throw HostError(ExitCode::Usage, QStringLiteral("--size %1").arg(text),
        QStringLiteral("not a size"),
        QStringLiteral(
            "write width and height in pixels, such as 1200x630, or one of them, such as 1200x"));
}

// \param text as the user wrote it
CropShape shapeOf(const QString& text, const QSize& size, const QString& name)
{
    constexpr int mostPixels = 100000;
    if (size.isEmpty() || size.width() > mostPixels || size.height() > mostPixels)
        throwNoSize(text);
    return { name, size, size };
}

} // namespace

QSize parseRatio(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral(
        R"(\A([0-9]{1,5})(?:\.([0-9]{1,4}))?(?::([0-9]{1,5})(?:\.([0-9]{1,4}))?)?\z)"));
    const QRegularExpressionMatch match = pattern.match(text);
    const bool isToOne = match.captured(3).isEmpty();
    const QSize ratio(tenThousandths(match.captured(1), match.captured(2)),
        isToOne ? tenThousandths(QStringLiteral("1"), QString())
                : tenThousandths(match.captured(3), match.captured(4)));
    if (!match.hasMatch() || ratio.isEmpty())
        throw HostError(ExitCode::Usage, QStringLiteral("--ratio %1").arg(text),
            QStringLiteral("not a ratio"),
            QStringLiteral("write two numbers above 0, width first, such as 16:9"));
    return ratio;
}

QVector<CropShape> parseRatios(const QString& text)
{
    QVector<CropShape> shapes;
    for (const QString& ratio : text.split(QLatin1Char(',')))
        shapes.append({ ratio, parseRatio(ratio), QSize() });
    return shapes;
}

QVector<CropShape> parseSize(const QString& text, const QVector<CropShape>& ratios)
{
    static const QRegularExpression pattern(QStringLiteral(R"(\A([0-9]{0,6})x([0-9]{0,6})\z)"));
    const QRegularExpressionMatch match = pattern.match(text);
    const QString width = match.captured(1);
    const QString height = match.captured(2);
    if (width.isEmpty() && height.isEmpty())
        throwNoSize(text);
    if (!width.isEmpty() && !height.isEmpty())
        return { shapeOf(text, QSize(width.toInt(), height.toInt()), text) };
    if (ratios.isEmpty())
        throw HostError(ExitCode::Usage, QStringLiteral("--size %1").arg(text),
            QStringLiteral("the other side is missing"),
            QStringLiteral("add --ratio 16:9, or write both sides"));
    QVector<CropShape> shapes;
    for (const CropShape& shape : ratios) {
        const double widthToHeight
            = static_cast<double>(shape.ratio.width()) / shape.ratio.height();
        const QSize size(width.isEmpty() ? qRound(height.toInt() * widthToHeight) : width.toInt(),
            height.isEmpty() ? qRound(width.toInt() / widthToHeight) : height.toInt());
        shapes.append(
            shapeOf(text, size, QStringLiteral("%1x%2").arg(size.width()).arg(size.height())));
    }
    return shapes;
}

QSize parseGrid(const QString& text)
{
    constexpr int least = 2;
    constexpr int most = 200;
    static const QRegularExpression pattern(QStringLiteral(R"(\A([0-9]{1,3})x([0-9]{1,3})\z)"));
    const QRegularExpressionMatch match = pattern.match(text);
    const QSize grid(match.captured(1).toInt(), match.captured(2).toInt());
    if (std::min(grid.width(), grid.height()) < least
        || std::max(grid.width(), grid.height()) > most)
        throw HostError(ExitCode::Usage, QStringLiteral("--grid %1").arg(text),
            QStringLiteral("not a grid"),
            QStringLiteral("write columns and rows, 2 to 200 each, such as 12x8"));
    return grid;
}

} // namespace vxroi
