#include "InputLine.h"

#include "host/files/FileName.h"
#include "host/files/OutputFile.h"
#include "host/records/Json.h"
#include "vxroi/options/Options.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

constexpr QLatin1String wholeLine("line", 4); // what is wrong with it is wrong with no option
constexpr QLatin1String pathKey("path", 4);
constexpr QLatin1String keepKey("keep", 4);
constexpr QLatin1String avoidKey("avoid", 5);
constexpr QLatin1String mapKey("map", 3);
constexpr QLatin1String focusKey("focus", 5);
constexpr QLatin1String ratiosKey("ratios", 6);
constexpr QLatin1String outKey("out", 3);

// What is wrong with a line, for the record of its input.
[[noreturn]] void refuse(const QString& reason)
{
    throw HostError(ExitCode::Usage, wholeLine, reason,
        QStringLiteral("write an object such as {\"path\": \"a.jpg\", \"ratios\": [\"1:1\"]}"));
}

// A list names files only.
QString fileCalled(const QString& name)
{
    return host::isStandardStream(name) ? QStringLiteral("./") + name : name;
}

QString stringOf(const QJsonValue& value, const QString& key)
{
    if (!value.isString() || value.toString().isEmpty())
        refuse(QStringLiteral("\"%1\" is no text").arg(key));
    if (!host::mayBeName(value.toString()))
        refuse(QStringLiteral("\"%1\" holds characters that no name has").arg(key));
    return value.toString();
}

QJsonArray arrayOf(const QJsonValue& value, const QString& key)
{
    if (!value.isArray())
        refuse(QStringLiteral("\"%1\" is no array").arg(key));
    return value.toArray();
}

// The numbers of an array, or texts such as "20%", with commas between them, as they are written on a command line.
QString withCommas(const QJsonArray& numbers, const QString& key)
{
    QStringList texts;
    for (const QJsonValue& number : numbers) {
        const bool isPercent = number.toString().endsWith(QLatin1Char('%'));
        if (!number.isDouble() && !isPercent)
            refuse(QStringLiteral("\"%1\" holds something else than numbers").arg(key));
        texts.append(isPercent ? number.toString() : QString::number(number.toDouble(), 'g', 12));
    }
    return texts.join(QLatin1Char(','));
}

// The areas that the object has under the key, if any.
QVector<host::Area> areasIn(const QJsonObject& object, const QString& key)
{
    QVector<host::Area> areas;
    if (!object.contains(key))
        return areas;
    const QJsonArray array = arrayOf(object.value(key), key);
    for (const QJsonValue& area : array)
        areas.append(
            host::parseArea(withCommas(arrayOf(area, key), key), QStringLiteral("--") + key));
    return areas;
}

void requireKnownKeys(const QJsonObject& object)
{
    const QStringList known { pathKey, keepKey, avoidKey, focusKey, mapKey, ratiosKey, outKey };
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
        constraints.focus
            = host::parsePoint(withCommas(arrayOf(object.value(focusKey), focusKey), focusKey));
    if (object.contains(keepKey) || object.contains(avoidKey) || object.contains(focusKey))
        input.constraints = constraints;
    if (object.contains(mapKey))
        input.map = fileCalled(stringOf(object.value(mapKey), mapKey));
    if (object.contains(ratiosKey)) {
        const QJsonArray ratios = arrayOf(object.value(ratiosKey), ratiosKey);
        for (const QJsonValue& ratio : ratios)
            input.shapes += host::parseRatios(stringOf(ratio, ratiosKey));
    }
    if (object.contains(outKey))
        input.output = fileCalled(stringOf(object.value(outKey), outKey));
}

Input inputFromPath(const QByteArray& path)
{
    if (path.contains('\0'))
        throw HostError(ExitCode::Usage, wholeLine,
            QStringLiteral("holds characters that no name has"),
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
        input.request = shortHashOf(own);
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
        // What is wrong with an option is as wrong in a line.
        const bool isOfLine = error.subject() == wholeLine;
        input.failure = HostError(error.code(), input.path,
            isOfLine ? error.reason()
                     : QStringLiteral("%1: %2").arg(error.subject(), error.reason()),
            error.remedy());
    }
    return input;
}

} // namespace vxroi
