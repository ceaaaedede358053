#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QRect>
#include <QSize>
#include <QString>

namespace host {

/// The result of parseObject().
struct JsonObject {
    QJsonObject object;
    QString fault; ///< what is wrong with the text; empty: it is valid
};

/// Parses a text that is one JSON object. An object that has a key twice is refused, because parsers differ in which of
/// the values they take.
JsonObject parseObject(const QByteArray& text);

/// The SHA-256 of \a object as compact JSON: 64 hexadecimal digits.
QString hashOf(const QJsonObject& object);

/// The first 16 digits of hashOf().
QString shortHashOf(const QJsonObject& object);

/// {"width", "height"}
QJsonObject jsonOf(const QSize& size);

/// {"x", "y", "width", "height"}; an empty rectangle has a side of 0.
QJsonObject jsonOf(const QRect& rect);

} // namespace host
