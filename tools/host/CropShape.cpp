#include "CropShape.h"

#include "HostError.h"

#include <QRegularExpression>
#include <QStringList>

namespace host {

QString CropShape::fileName() const
{
    return QString(name).replace(QLatin1Char(':'), QLatin1Char('x'));
}

QSize CropShape::outputSize(const QSize& window, bool upscales) const
{
    const bool isLargeEnough = window.width() >= size.width() && window.height() >= size.height();
    return size.isValid() && (isLargeEnough || upscales) ? size : window;
}

QVector<CropShape> parseRatios(const QString& text)
{
    QVector<CropShape> shapes;
    for (const QString& ratio : text.split(QLatin1Char(',')))
        shapes.append({ ratio, parseAspectRatio(ratio), QSize() });
    return shapes;
}

CropShape parseSize(const QString& text)
{
    constexpr int mostPixels = 100000;
    static const QRegularExpression pattern(QStringLiteral(R"(\A([0-9]{1,6})x([0-9]{1,6})\z)"));
    const QRegularExpressionMatch match = pattern.match(text);
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    if (size.isEmpty() || size.width() > mostPixels || size.height() > mostPixels)
        throw HostError(ExitCode::Usage, QStringLiteral("--size %1").arg(text),
            QStringLiteral("not a size"),
            QStringLiteral("write width and height in pixels, such as 1200x630"));
    return { text, size, size };
}

} // namespace host
