#pragma once

#include <QJsonObject>
#include <QRect>
#include <QSize>

namespace host {

/// {"width", "height"}
QJsonObject jsonOf(const QSize& size);

/// {"x", "y", "width", "height"}; an empty rectangle has a side of 0.
QJsonObject jsonOf(const QRect& rect);

} // namespace host
