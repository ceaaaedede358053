#pragma once

#include <algorithm>

namespace vx::kernels {

/// Columns of a surround, or rows: \a first to \a last.
struct SurroundSpan {
    int first; ///< from here
    int last; ///< up to here

    /// How many.
    int count() const { return last - first + 1; }
};

/// The span of the surround of the pixel at \a position of \a length: as far as the nearer border to both
/// sides, where the far border is as far away as if there were one more pixel.
inline SurroundSpan surroundSpan(int position, int length)
{
    const int reach = std::min(position, length - position);
    return { std::max(position - reach, 0), std::min(position + reach, length - 1) };
}

/// The sum of those of the weights 1, 2, 1 that lie inside, around \a position of \a length.
inline double smoothingWeights(int position, int length)
{
    return 4.0 - (position == 0 ? 1 : 0) - (position == length - 1 ? 1 : 0);
}

} // namespace vx::kernels
