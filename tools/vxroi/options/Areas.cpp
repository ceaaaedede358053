#include "Areas.h"

#include "host/HostError.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace vxroi {

namespace {

using host::Area;
using host::ExitCode;
using host::HostError;
using host::Length;

std::optional<double> parseNumber(const QString& text)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber ? std::make_optional(number) : std::nullopt;
}

bool isShare(std::optional<double> number) { return number && *number >= 0 && *number <= 1; }

} // namespace

std::optional<Length> parseLength(const QString& text)
{
    // A whole number of pixels, or a percentage with up to four decimals.
    static const QRegularExpression pattern(
        QStringLiteral(R"(\A(?:(-?[0-9]{1,9})|(-?[0-9]{1,3}(?:\.[0-9]{1,4})?)%)\z)"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const bool isPercent = match.captured(1).isEmpty();
    return Length { match.captured(isPercent ? 2 : 1).toDouble(), isPercent };
}

Area areaOf(const QVector<std::optional<Length>>& lengths, const QString& text)
{
    const bool areLengths = lengths.size() == 4
        && std::all_of(lengths.begin(), lengths.end(),
            [](const std::optional<Length>& length) { return length.has_value(); });
    if (!areLengths || lengths.at(2)->value <= 0 || lengths.at(3)->value <= 0)
        throw HostError(ExitCode::Usage, text, QStringLiteral("not an area"),
            QStringLiteral("write left, top, width and height in pixels or percent, such as "
                           "10,20,300,200"));
    return { *lengths.at(0), *lengths.at(1), *lengths.at(2), *lengths.at(3), text };
}

Area parseArea(const QString& text, const QString& option)
{
    QVector<std::optional<Length>> lengths;
    for (const QString& part : text.split(QLatin1Char(',')))
        lengths.append(parseLength(part));
    return areaOf(lengths, QStringLiteral("%1 %2").arg(option, text));
}

QPointF focusOf(std::optional<double> x, std::optional<double> y, const QString& text)
{
    if (!isShare(x) || !isShare(y))
        throw HostError(ExitCode::Usage, text, QStringLiteral("not a point"),
            QStringLiteral("write two numbers from 0 to 1, such as 0.5,0.33"));
    return { *x, *y };
}

QPointF parseFocus(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(','));
    const auto number = [&](int index) {
        return parts.size() == 2 ? parseNumber(parts.at(index)) : std::nullopt;
    };
    return focusOf(number(0), number(1), QStringLiteral("--focus %1").arg(text));
}

} // namespace vxroi
