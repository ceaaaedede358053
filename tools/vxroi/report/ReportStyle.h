#pragma once

#include <QByteArray>
#include <QString>

namespace vxroi {

/// The CSS classes of the line that outlines the window of a shape, for its colour and its dashes. The first 30 shapes
/// have different lines; any five consecutive ones also differ in their dashes.
/// \param position the index of the shape among those of its picture, from 0.
QString lineClassesOf(int position);

/// The CSS of these classes, and the SVG filter "heat", which colours a map as host::drawOverlay() does.
QByteArray pageStyle();

} // namespace vxroi
