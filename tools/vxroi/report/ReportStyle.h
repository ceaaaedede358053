#pragma once

#include <QByteArray>
#include <QString>

namespace vxroi {

/// The classes of the line that outlines the window of a shape: its colour and its dashes. Lines of 30 shapes differ,
/// those of any five in their dashes, too.
/// \param position of the shape among those of its picture.
QString lineClassesOf(int position);

/// The CSS of these classes, and the SVG filter "heat", which colours a map as host::drawOverlay() does.
QByteArray pageStyle();

} // namespace vxroi
