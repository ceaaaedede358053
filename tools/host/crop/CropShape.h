#pragma once

#include "AspectRatio.h"

#include <QSize>
#include <QString>
#include <QVector>

namespace host {

/// What a crop should look like: a ratio, or a size in pixels.
struct CropShape {
    QString name; ///< as the user wrote it: "16:9", "1200x630"
    QSize ratio; ///< width to height
    QSize size; ///< invalid: as large as the picture allows

    /// The name as part of a file name: "16x9".
    QString fileName() const;

    /// Whether a window has so many pixels as the size asks for.
    bool isFilledBy(const QSize& window) const;
};

/// The most shapes that one picture is cropped to.
constexpr int mostShapes = 100;

/// Reads ratios separated by commas, such as "1:1,16:9".
/// \throws HostError when one is none; see parseAspectRatio().
QVector<CropShape> parseRatios(const QString& text);

/// Reads a size such as "1200x630", each side 1 to 100000 pixels; or one side, "1200x" or "x630", whose other side
/// follows from a ratio.
/// \return one shape; for one side, one for each of \a ratios.
/// \throws HostError when \a text is anything else, or one side without ratios.
QVector<CropShape> parseSizes(const QString& text, const QVector<CropShape>& ratios);

} // namespace host
