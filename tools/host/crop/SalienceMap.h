#pragma once

#include <QImage>

namespace host {

/// \a map with its levels stretched to reach from black to white, for the eye; its text "Comment" says
/// so.
QImage stretched(const QImage& map);

/// \a map with its levels scaled so that the brightest is white, as heat shows them.
QImage brightened(const QImage& map);

} // namespace host
