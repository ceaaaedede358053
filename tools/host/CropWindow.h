#pragma once

#include "AspectRatio.h"

#include <QImage>
#include <QPointF>
#include <QRect>
#include <QSize>
#include <QVector>

#include <optional>

namespace host {

/// What put a window where it is.
enum class Decider {
    WholePicture, ///< there is nothing to choose: the window is the picture
    Focus, ///< it is centred on the point of focus, as far as the frame allows
    Keep, ///< areas to keep left only some places
    Salience, ///< it holds most of the map
    Centre, ///< no place holds noticeably more of the map than the centre
};

/// The name of \a decider in records: "whole", "focus", "keep", "salience", "centre".
QString nameOf(Decider decider);

/// \a window as other programs take it: "800x600+10+20", its size and its upper left corner.
QString geometryOf(const QRect& window);

/// What the user asks of a window, besides its size.
struct Wishes {
    QVector<QRect> keep; ///< areas that should be in it, in picture pixels
    std::optional<QPointF> focus; ///< its centre, 0 to 1 across and down the picture; wins over all
};

/// A window within a picture.
struct Choice {
    QRect window; ///< in picture pixels
    Decider decider = Decider::Centre;
};

/// The largest window of \a ratio that fits into \a picture.
///
/// It is as wide or as high as the picture; the other side is rounded to whole pixels and is at
/// least 1.
/// \pre both sides of \a picture are above 0.
QSize largestWindow(const QSize& picture, const AspectRatio& ratio);

/// Chooses where in a picture its largest window of \a ratio lies.
///
/// Along the axis with room to move, windows are compared by what they hold of the map; the one that
/// holds most wins, of several the one nearest to the centre, and the centre itself unless another
/// holds at least a thousandth more. With areas to keep, only windows that hold as many of them as
/// any window can are compared; of an area longer than the window, those within it.
/// \param map the picture's salience map, of any size; not null.
/// \param picture size of the picture in pixels; both sides above 0.
Choice chooseWindow(
    const QImage& map, const QSize& picture, const AspectRatio& ratio, const Wishes& wishes = {});

/// The share of the map's salience that \a window holds, 0 to 1; 0 for a black map.
double salienceWithin(const QImage& map, const QSize& picture, const QRect& window);

/// The window of \a window's size in the middle of \a picture.
QRect centredIn(const QSize& picture, const QSize& window);

/// The pixels of \a picture within \a window, with its colours and its resolution. They are not
/// copied, unless several share a byte: to write into the view is to write into the picture.
/// \pre \a picture outlives the result.
QImage viewOf(QImage& picture, const QRect& window);

} // namespace host
