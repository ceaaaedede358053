#pragma once

#include <algorithm>

namespace vx::kernels {

/// The columns of a surround, or its rows: \a first to \a last, both included.
struct SurroundSpan {
    int first; ///< the first of them
    int last; ///< the last of them

    /// How many there are.
    int count() const { return last - first + 1; }
};

/// The span of the surround of the pixel at \a position in a row or column of \a length pixels.
///
/// It reaches equally far to both sides, up to the nearer border; the far border counts as one pixel further away than
/// it is, and what would lie beyond it is cut off.
inline SurroundSpan surroundSpan(int position, int length)
{
    const int radius = std::min(position, length - position);
    return { std::max(position - radius, 0), std::min(position + radius, length - 1) };
}

/// The sum of those of the smoothing weights 1, 2, 1 that lie inside, at \a position of \a length pixels.
inline double smoothingWeights(int position, int length)
{
    return 4.0 - (position == 0 ? 1 : 0) - (position == length - 1 ? 1 : 0);
}

} // namespace vx::kernels
