#include "Json.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QRegularExpression>

#include <nlohmann/json.hpp>

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace host {

namespace {

// \a text with every surrogate replaced by a space. Half of a pair, which stands for a byte of a file name, would be an
// error to this parser.
std::string withoutSurrogates(const QByteArray& text)
{
    static const QRegularExpression surrogate(QStringLiteral(R"(\\u[dD][89a-fA-F][0-9a-fA-F]{2})"));
    return QString::fromLatin1(text)
        .replace(surrogate, QStringLiteral("\\u0020"))
        .toLatin1()
        .toStdString();
}

// Finds a key that an object, at any depth, has twice.
class RepeatedKeys {
public:
    using Event = nlohmann::json::parse_event_t;

    void see(Event event, const nlohmann::json& parsed)
    {
        if (event == Event::object_start)
            keysOfOpenObjects.emplace_back();
        else if (event == Event::object_end)
            keysOfOpenObjects.pop_back();
        else if (event == Event::key
            && !keysOfOpenObjects.back().insert(parsed.get<std::string>()).second)
            repeated = QString::fromStdString(parsed.get<std::string>());
    }

    std::optional<QString> found() const { return repeated; }

private:
    std::vector<std::set<std::string>> keysOfOpenObjects;
    std::optional<QString> repeated;
};

QString faultOf(const QByteArray& text)
try {
    RepeatedKeys keys;
    const auto see
        = [&keys](int /*depth*/, RepeatedKeys::Event event, const nlohmann::json& parsed) {
              keys.see(event, parsed);
              return true;
          };
    const nlohmann::json parsed = nlohmann::json::parse(withoutSurrogates(text), see);
    if (!parsed.is_object())
        return QStringLiteral("not a JSON object");
    return keys.found() ? QStringLiteral("names \"%1\" twice").arg(*keys.found()) : QString();
} catch (const nlohmann::json::exception& error) {
    // The exception's number and its line number, always 1, tell the user nothing.
    const QString what = QString::fromUtf8(error.what()).section(QStringLiteral("] "), 1);
    return QStringLiteral("not JSON: %1")
        .arg(QString(what).remove(QStringLiteral("parse error at line 1, ")));
}

} // namespace

JsonObject parseObject(const QByteArray& text)
{
    // This check comes before Qt's parser, which leaks the values of repeated keys.
    const QString fault = faultOf(text);
    if (!fault.isEmpty())
        return { {}, fault };
    QJsonParseError error {};
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (!document.isObject())
        return { {}, QStringLiteral("not JSON: %1").arg(error.errorString()) };
    return { document.object(), {} };
}

QString hashOf(const QJsonObject& object)
{
    const QByteArray text = QJsonDocument(object).toJson(QJsonDocument::Compact);
    return QString::fromLatin1(QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex());
}

QString shortHashOf(const QJsonObject& object)
{
    constexpr int digits = 16;
    return hashOf(object).left(digits);
}

QJsonObject jsonOf(const QSize& size)
{
    return { { QStringLiteral("width"), size.width() },
        { QStringLiteral("height"), size.height() } };
}

QJsonObject jsonOf(const QRect& rect)
{
    QJsonObject object = jsonOf(rect.size());
    object.insert(QStringLiteral("x"), rect.x());
    object.insert(QStringLiteral("y"), rect.y());
    return object;
}

} // namespace host
