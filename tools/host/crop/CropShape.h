#pragma once

#include <QSize>
#include <QString>

namespace host {

/// What a crop should look like: a ratio, or a size in pixels.
struct CropShape {
    QString name; ///< as the user wrote it: "16:9", "1200x630"
    QSize ratio; ///< width to height
    QSize size; ///< invalid: as large as the picture allows

    /// The name as part of a file name: "16x9".
    QString fileName() const;

    /// Whether a crop has as many pixels as the size asks for.
    bool isFilledBy(const QSize& crop) const;
};

/// The most shapes that one picture is cropped to.
constexpr int mostShapes = 100;

} // namespace host
