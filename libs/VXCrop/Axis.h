#pragma once

#include <QtGlobal>

/// \file
/// The axis on which a window has room to move.

namespace vx::crop {

/// A run of pixels along an axis of a picture, or of places where a window may begin.
struct Span {
    int first; ///< the first of them
    int last; ///< the last, included
};

/// An axis of a picture and the window to be placed on it, in picture pixels.
struct Axis {
    int pictureLength; ///< above 0
    int windowLength; ///< 1 to pictureLength

    /// The last place where the window may begin.
    int lastStart() const { return pictureLength - windowLength; }
    /// Where the window in the middle begins.
    int centreStart() const { return lastStart() / 2; }
};

/// number · numerator / denominator, rounded to the nearest integer. \pre all are at least 0, and
/// the denominator is above 0.
inline int scaled(qint64 number, qint64 numerator, qint64 denominator)
{
    return static_cast<int>((2 * number * numerator + denominator) / (2 * denominator));
}

} // namespace vx::crop
