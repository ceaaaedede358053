#pragma once

#include <QImage>
#include <QString>
#include <QVector>

namespace host {

/// Computes the salience map of \a picture with the library's default methods and weights.
/// \return a map that fits into 640 × 480 pixels and has the picture's aspect ratio.
QImage salienceMapOf(const QImage& picture);

/// The map of one method.
struct MethodMap {
    QString method; ///< its name in lower case, such as "achanta"
    QImage map;
};

/// Computes the maps that salienceMapOf() blends, in the order in which it does.
QVector<MethodMap> methodMapsOf(const QImage& picture);

} // namespace host
