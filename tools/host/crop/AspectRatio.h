#pragma once

#include <QSize>
#include <QString>

namespace host {

/// Reads a ratio such as "16:9", "1.91:1" or "1.91", which is the same.
///
/// Both numbers have up to five digits before the point and up to four after it.
/// \return the shape of a window, width to height; both sides are above 0 and at most 10⁹.
/// \throws HostError when \a text is anything else, or when a number is 0.
QSize parseAspectRatio(const QString& text);

} // namespace host
