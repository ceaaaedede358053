#include "AspectRatio.h"

#include "host/HostError.h"

#include <QRegularExpression>

namespace host {

namespace {

// In ten-thousandths, so that the four digits after the point are exact.
int tenThousandths(const QString& whole, const QString& fraction)
{
    return (whole + fraction.leftJustified(4, QLatin1Char('0'))).toInt();
}

} // namespace

QSize parseAspectRatio(const QString& text)
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

} // namespace host
