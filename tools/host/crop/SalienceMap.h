#pragma once

#include <QImage>

namespace host {

/// \a map with its levels stretched from black to white, to be looked at. The original range is in its text "Comment".
QImage stretched(const QImage& map);

/// \a map with its levels scaled so that the brightest is white, as the heat scale needs it.
QImage brightened(const QImage& map);

} // namespace host
