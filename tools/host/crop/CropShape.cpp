#include "CropShape.h"

#include "host/HostError.h"

#include <QRegularExpression>
#include <QStringList>

namespace host {

namespace {

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

QString CropShape::fileName() const
{
    return QString(name).replace(QLatin1Char(':'), QLatin1Char('x'));
}

bool CropShape::isFilledBy(const QSize& window) const
{
    return window.width() >= size.width() && window.height() >= size.height();
}

QVector<CropShape> parseRatios(const QString& text)
{
    QVector<CropShape> shapes;
    for (const QString& ratio : text.split(QLatin1Char(',')))
        shapes.append({ ratio, parseAspectRatio(ratio), QSize() });
    return shapes;
}

QVector<CropShape> parseSizes(const QString& text, const QVector<CropShape>& ratios)
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
            QStringLiteral("the other side is not named"),
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

} // namespace host
