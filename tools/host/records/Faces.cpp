#include "Faces.h"

#include "Json.h"

#include <QJsonObject>

#include <array>
#include <cmath>

namespace host {

namespace {

constexpr double farthest = 1e9;

std::optional<Face> faceFrom(const QJsonObject& object)
{
    std::array<double, 4> numbers {};
    constexpr std::array<const char*, numbers.size()> keys { "x", "y", "width", "height" };
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const QJsonValue value = object.value(QLatin1String(keys.at(i)));
        if (!value.isDouble() || std::abs(value.toDouble()) > farthest)
            return std::nullopt;
        numbers.at(i) = value.toDouble();
    }
    const auto [x, y, width, height] = numbers;
    if (width <= 0 || height <= 0)
        return std::nullopt;
    const QPoint first(static_cast<int>(std::floor(x)), static_cast<int>(std::floor(y)));
    const QPoint last(
        static_cast<int>(std::ceil(x + width)) - 1, static_cast<int>(std::ceil(y + height)) - 1);
    const QJsonValue score = object.value(QLatin1String("score"));
    if (!score.isUndefined() && !score.isDouble())
        return std::nullopt;
    return Face { QRect(first, last),
        score.isDouble() ? std::make_optional(score.toDouble()) : std::nullopt };
}

} // namespace

QJsonArray jsonOf(const QVector<Face>& faces)
{
    QJsonArray array;
    for (const Face& face : faces) {
        QJsonObject object = jsonOf(face.box);
        if (face.score)
            object.insert(QStringLiteral("score"), *face.score);
        array.append(object);
    }
    return array;
}

std::optional<QVector<Face>> facesFrom(const QJsonValue& value)
{
    const QJsonArray array = value.toArray();
    if (!value.isArray() || array.size() > mostFaces)
        return std::nullopt;
    QVector<Face> faces;
    for (const QJsonValue& element : array) {
        const std::optional<Face> face = faceFrom(element.toObject());
        if (!face)
            return std::nullopt;
        faces.append(*face);
    }
    return faces;
}

QString faultOfFaces()
{
    return QStringLiteral("is not an array of at most %1 objects with x, y, width and height")
        .arg(mostFaces);
}

QVector<QRect> boxesOf(const QVector<Face>& faces)
{
    QVector<QRect> boxes;
    for (const Face& face : faces)
        boxes.append(face.box);
    return boxes;
}

} // namespace host
