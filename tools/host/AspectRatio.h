#pragma once

#include <QString>
#include <QtGlobal>

namespace host {

/// The shape of a window: width to height.
struct AspectRatio {
    qint64 width; ///< above 0, at most 10⁹
    qint64 height; ///< above 0, at most 10⁹
};

/// Reads a ratio such as "16:9" or "1.91:1".
///
/// Both numbers have up to five digits before the point and up to four after it.
/// \throws HostError when \a text is anything else, or when a number is 0.
AspectRatio parseAspectRatio(const QString& text);

} // namespace host
