#pragma once

#include <QSize>
#include <QString>

namespace host {

/// What a crop should look like: a ratio, or a size in pixels.
struct CropShape {
    QString name; ///< as the user wrote it: "16:9", "1200x630"
    QSize ratio; ///< width to height
    QSize size; ///< in pixels; invalid: as large as the picture allows

    /// The name in a form that suits file names: "16x9".
    QString fileName() const;

    /// Whether a crop of size \a crop has at least the width and the height of the size.
    bool isFilledBy(const QSize& crop) const;
};

/// The most shapes that one picture may be cropped to.
constexpr int mostShapes = 100;

} // namespace host
