#pragma once

#include <QPainter>

namespace scenes {

/// Paints a red hot-air balloon whose envelope has this centre and radius.
void paintBalloon(QPainter& painter, const QPointF& centre, double radius);

/// Paints a boat with a white mainsail and a red jib, whose mast stands at \a foot.
void paintSailboat(QPainter& painter, const QPointF& foot, double height);

/// Paints an orange poppy on its stem.
void paintPoppy(QPainter& painter, const QPointF& centre, double radius);

} // namespace scenes
