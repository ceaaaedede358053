#include "InputLine.h"

#include "host/FileName.h"
#include "host/files/OutputFile.h"
#include "host/records/Json.h"
#include "vxroi/options/Areas.h"
#include "vxroi/options/Shapes.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <cmath>
#include <stdexcept>

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

constexpr QLatin1String wholeLine("line", 4); // the subject of errors that concern no single option
constexpr QLatin1String pathKey("path", 4);
constexpr QLatin1String keepKey("keep", 4);
constexpr QLatin1String avoidKey("avoid", 5);
constexpr QLatin1String mapKey("map", 3);
constexpr QLatin1String focusKey("focus", 5);
constexpr QLatin1String ratiosKey("ratios", 6);
constexpr QLatin1String outKey("out", 3);
constexpr QLatin1String facesKey("faces", 5);
constexpr QLatin1String errorKey("error", 5); // of a detector that does not know the faces

// Throws an error about the whole line.
[[noreturn]] void refuse(const QString& reason)
{
    throw HostError(ExitCode::Usage, wholeLine, reason,
        QStringLiteral("write an object such as {\"path\": \"a.jpg\", \"ratios\": [\"1:1\"]}"));
}

// Lists name only files, so "-" is a file, not standard input.
QString fileCalled(const QString& name)
{
    return host::isStandardStream(name) ? QStringLiteral("./") + name : name;
}

QString stringOf(const QJsonValue& value, const QString& key)
{
    if (!value.isString() || value.toString().isEmpty())
        refuse(QStringLiteral("\"%1\" is not a text").arg(key));
    if (!host::mayBeName(value.toString()))
        refuse(QStringLiteral("\"%1\" contains characters that no file name has").arg(key));
    return value.toString();
}

QJsonArray arrayOf(const QJsonValue& value, const QString& key)
{
    if (!value.isArray())
        refuse(QStringLiteral("\"%1\" is not an array").arg(key));
    return value.toArray();
}

// A whole number of pixels, or a text such as "20%"; std::nullopt for anything else.
std::optional<host::Length> lengthOf(const QJsonValue& value)
{
    constexpr double mostPixels = 999'999'999;
    if (value.toString().endsWith(QLatin1Char('%')))
        return parseLength(value.toString());
    const double pixels = value.toDouble();
    const bool isWhole = std::floor(pixels) == pixels && std::abs(pixels) <= mostPixels;
    return value.isDouble() && isWhole ? std::make_optional(host::Length { pixels, false })
                                       : std::nullopt;
}

// The value as JSON, for messages.
QString textOf(const QJsonArray& array)
{
    return QString::fromUtf8(QJsonDocument(array).toJson(QJsonDocument::Compact));
}

// The areas in the object under \a key; empty when it is missing.
QVector<host::Area> areasIn(const QJsonObject& object, const QString& key)
{
    QVector<host::Area> areas;
    if (!object.contains(key))
        return areas;
    const QJsonArray array = arrayOf(object.value(key), key);
    for (const QJsonValue& area : array) {
        const QJsonArray values = arrayOf(area, key);
        QVector<std::optional<host::Length>> lengths;
        for (const QJsonValue& value : values)
            lengths.append(lengthOf(value));
        areas.append(areaOf(lengths, QStringLiteral("\"%1\" %2").arg(key, textOf(values))));
    }
    return areas;
}

QPointF focusIn(const QJsonObject& object)
{
    const QJsonArray values = arrayOf(object.value(focusKey), focusKey);
    const auto number = [&](int index) {
        const QJsonValue value = values.at(index);
        return value.isDouble() && values.size() == 2 ? std::make_optional(value.toDouble())
                                                      : std::nullopt;
    };
    return focusOf(number(0), number(1), QStringLiteral("\"%1\" %2").arg(focusKey, textOf(values)));
}

// What a detector such as vxroi-faces has added to the line.
std::optional<host::Detection> detectionIn(const QJsonObject& object)
try {
    return host::Detection::in(object);
} catch (const std::invalid_argument& error) {
    refuse(QString::fromUtf8(error.what()));
}

void requireKnownKeys(const QJsonObject& object)
{
    const QStringList known { pathKey, keepKey, avoidKey, focusKey, mapKey, ratiosKey, outKey,
        facesKey, errorKey };
    for (const QString& key : object.keys()) {
        if (!known.contains(key))
            refuse(QStringLiteral("\"%1\" is not known").arg(key));
    }
}

void fill(Input& input, const QJsonObject& object)
{
    requireKnownKeys(object);
    host::Constraints constraints;
    constraints.keep = areasIn(object, keepKey);
    constraints.avoid = areasIn(object, avoidKey);
    if (object.contains(focusKey))
        constraints.focus = focusIn(object);
    if (object.contains(keepKey) || object.contains(avoidKey) || object.contains(focusKey))
        input.constraints = constraints;
    if (object.contains(mapKey))
        input.map = fileCalled(stringOf(object.value(mapKey), mapKey));
    if (object.contains(ratiosKey)) {
        const QJsonArray ratios = arrayOf(object.value(ratiosKey), ratiosKey);
        for (const QJsonValue& ratio : ratios)
            input.shapes += parseRatios(stringOf(ratio, ratiosKey));
    }
    if (object.contains(outKey))
        input.output = fileCalled(stringOf(object.value(outKey), outKey));
    input.detection = detectionIn(object);
}

Input inputFromPath(const QByteArray& path)
{
    if (path.contains('\0'))
        throw HostError(ExitCode::Usage, wholeLine,
            QStringLiteral("contains characters that no file name has"),
            QStringLiteral("end paths in a newline, or in NUL with -0"));
    return { fileCalled(host::textOfName(path)) };
}

void fillFromJson(Input& input, const QByteArray& line)
{
    const host::JsonObject parsed = host::parseObject(line);
    if (!parsed.fault.isEmpty())
        refuse(parsed.fault);
    input.path = fileCalled(stringOf(parsed.object.value(pathKey), pathKey));
    fill(input, parsed.object);
    QJsonObject own = parsed.object;
    own.remove(pathKey);
    if (!own.isEmpty())
        input.request = host::shortHashOf(own);
}

} // namespace

Input inputFrom(const ListEntry& entry, bool isJsonAllowed)
{
    Input input { QStringLiteral("(line %1)").arg(entry.number) };
    try {
        if (entry.isTooLong)
            refuse(QStringLiteral("has more than %1 bytes").arg(ListReader::mostBytes));
        if (!isJsonAllowed || !entry.bytes.startsWith('{'))
            return inputFromPath(entry.bytes);
        fillFromJson(input, entry.bytes);
    } catch (const HostError& error) {
        // The parsers of options are used for lines, too; their errors have the option as the subject.
        const bool isOfLine = error.subject() == wholeLine;
        input.failure = HostError(error.code(), input.path,
            isOfLine ? error.reason()
                     : QStringLiteral("%1: %2").arg(error.subject(), error.reason()),
            error.remedy());
    }
    return input;
}

} // namespace vxroi
