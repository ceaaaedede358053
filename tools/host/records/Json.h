#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QRect>
#include <QSize>
#include <QString>

namespace host {

/// What parseObject() makes of a text.
struct JsonObject {
    QJsonObject object;
    QString fault; ///< what is wrong with the text; empty: nothing
};

/// Reads a text that is one JSON object. An object that has a key twice is refused: readers differ in which value they take.
JsonObject parseObject(const QByteArray& text);

/// The SHA-256 of what \a object holds, 64 hexadecimal digits.
QString hashOf(const QJsonObject& object);

/// Its first 16 digits.
QString shortHashOf(const QJsonObject& object);

/// {"width", "height"}
QJsonObject jsonOf(const QSize& size);

/// {"x", "y", "width", "height"}; an empty rectangle has a side of 0.
QJsonObject jsonOf(const QRect& rect);

} // namespace host
