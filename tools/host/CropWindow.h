#pragma once

#include <VXCrop/VXCrop.h>

#include <QRect>
#include <QSize>
#include <QString>

namespace host {

/// The name of \a reason in records: "whole", "focus", "keep", "avoid", "salience", "centre".
QString nameOf(VXCropReason reason);

/// \a window as other programs take it: "800x600+10+20", its size and its upper left corner.
QString geometryOf(const QRect& window);

/// The areas of \a constraints cut off at the edges of \a picture.
/// \throws HostError when one lies outside the picture.
VXCropConstraints within(const QSize& picture, VXCropConstraints constraints);

/// The window of \a window's size in the middle of \a picture.
QRect centredIn(const QSize& picture, const QSize& window);

} // namespace host
