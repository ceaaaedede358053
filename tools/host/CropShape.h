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

    /// The size of what is written of a window: the size asked for, or the window's own when that is
    /// smaller and \a upscales is false.
    QSize outputSize(const QSize& window, bool upscales) const;
};

/// Reads ratios separated by commas, such as "1:1,16:9".
/// \throws HostError when one is none; see parseAspectRatio().
QVector<CropShape> parseRatios(const QString& text);

/// Reads a size such as "1200x630", each side 1 to 100000 pixels.
/// \throws HostError when \a text is anything else.
CropShape parseSize(const QString& text);

} // namespace host
