#pragma once

#include <VXCrop/VXCrop.h>

#include <QPointF>
#include <QRect>
#include <QSize>
#include <QString>
#include <QVector>

#include <optional>

namespace host {

/// A length in pixels, or in percent of a side of the picture.
struct Length {
    double value = 0;
    bool isPercent = false;

    /// The length in pixels, for a side of \a side pixels.
    double in(int side) const;
};

/// A rectangle in a picture, in pixels or percent.
struct Area {
    Length left;
    Length top;
    Length width;
    Length height;
    QString text; ///< as the user wrote it, with its option

    /// All pixels that the area touches in a picture of size \a picture.
    QRect in(const QSize& picture) const;
};

/// What a crop should contain and what it should leave out.
struct Constraints {
    QVector<Area> keep;
    QVector<Area> avoid;
    std::optional<QPointF> focus;
};

/// \a constraints in pixels of the picture at \a path, clipped to it.
/// \throws HostError when an area lies outside the picture.
VXCropConstraints within(const QSize& picture, const Constraints& constraints, const QString& path);

} // namespace host
