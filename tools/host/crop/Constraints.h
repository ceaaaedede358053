#pragma once

#include <VXCrop/VXCrop.h>

#include <QPointF>
#include <QRect>
#include <QSize>
#include <QString>
#include <QVector>

#include <optional>

namespace host {

/// A number of pixels, or of percent of a side of the picture.
struct Length {
    double value = 0;
    bool isPercent = false;

    /// In pixels of a side of that many.
    double in(int side) const;
};

/// A rectangle of a picture.
struct Area {
    Length left;
    Length top;
    Length width;
    Length height;
    QString text; ///< as the user wrote it, with its option

    /// The pixels of a picture that it touches.
    QRect in(const QSize& picture) const;
};

/// What a crop is to show and to leave out.
struct Constraints {
    QVector<Area> keep;
    QVector<Area> avoid;
    std::optional<QPointF> focus;
};

/// \a constraints in pixels of the picture at \a path, cut off at its edges.
/// \throws HostError when an area lies outside the picture.
VXCropConstraints within(const QSize& picture, const Constraints& constraints, const QString& path);

} // namespace host
