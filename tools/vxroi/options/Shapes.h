#pragma once

#include "host/crop/CropShape.h"

#include <QSize>
#include <QString>
#include <QVector>

namespace vxroi {

/// Parses a ratio such as "16:9", "1.91:1" or "1.91", which means 1.91:1.
///
/// Both numbers have up to five digits before the point and up to four after it.
/// \return the shape of a crop, width to height; both sides are above 0 and at most 10⁹.
/// \throws host::HostError when \a text is anything else, or when a number is 0.
QSize parseRatio(const QString& text);

/// Parses ratios separated by commas, such as "1:1,16:9".
/// \throws host::HostError when one of them is not a ratio; see parseRatio().
QVector<host::CropShape> parseRatios(const QString& text);

/// Parses a size such as "1200x630", each side from 1 to 100000 pixels; or one side, "1200x" or "x630", where the other
/// follows from a ratio.
/// \return one shape; for one side, one for each of \a ratios.
/// \throws host::HostError when \a text is anything else, or one side without ratios.
QVector<host::CropShape> parseSize(const QString& text, const QVector<host::CropShape>& ratios);

/// Parses a grid such as "12x8": columns and rows, each from 2 to 200.
/// \throws host::HostError when \a text is anything else.
QSize parseGrid(const QString& text);

} // namespace vxroi
