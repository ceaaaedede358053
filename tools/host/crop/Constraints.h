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

/// Reads four numbers such as "10,20,300,200" or "25%,0,50%,100%": left, top, width and height in pixels or in
/// percent of the picture.
/// \throws HostError when \a text is anything else, or the area is empty.
Area parseArea(const QString& text, const QString& option);

/// Reads a point such as "0.5,0.33", each from 0 to 1.
/// \throws HostError when \a text is anything else.
QPointF parsePoint(const QString& text);

/// \a constraints in pixels of the picture at \a path, cut off at its edges.
/// \throws HostError when an area lies outside the picture.
VXCropConstraints within(const QSize& picture, const Constraints& constraints, const QString& path);

} // namespace host
