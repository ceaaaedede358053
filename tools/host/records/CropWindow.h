#pragma once

#include <VXCrop/VXCrop.h>

#include <QRect>
#include <QSize>
#include <QString>

#include <optional>

namespace host {

/// The name of \a reason in records: "whole", "focus", "keep", "avoid", "faces", "salience", "centre".
QString nameOf(VXCropReason reason);

/// The reason that records call \a name; none when there is no such reason.
std::optional<VXCropReason> reasonCalled(const QString& name);

/// \a window as other programs take it: "800x600+10+20", its size and its upper left corner.
QString geometryOf(const QRect& window);

/// The window of \a window's size in the middle of \a picture.
QRect centredIn(const QSize& picture, const QSize& window);

} // namespace host
