#pragma once

#include <QJsonArray>
#include <QJsonValue>
#include <QRect>
#include <QVector>

#include <optional>

namespace host {

/// A face in a picture.
struct Face {
    QRect box; ///< from brow to chin, in pixels of the picture as seen
    std::optional<double> score; ///< how sure its detector is, in units of the detector
};

/// The most faces that are taken of one picture.
constexpr int mostFaces = 1000;

/// [{"x", "y", "width", "height", "score"}, ...]; "score" only where it is known.
QJsonArray jsonOf(const QVector<Face>& faces);

/// Reads what jsonOf() has written. Numbers need not be whole: a box covers all pixels that it touches. Unknown keys
/// are ignored.
/// \return std::nullopt when \a value is anything else, a box is empty, a number is beyond ±10⁹, or there are more than
/// mostFaces.
std::optional<QVector<Face>> facesFrom(const QJsonValue& value);

/// What is wrong with a value that facesFrom() refuses, to follow its name.
QString faultOfFaces();

/// The boxes of \a faces.
QVector<QRect> boxesOf(const QVector<Face>& faces);

} // namespace host
