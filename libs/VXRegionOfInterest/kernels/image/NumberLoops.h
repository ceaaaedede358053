#pragma once

#include <QtGlobal>

#include <cstddef>

namespace vx::kernels {

/// The smallest and the greatest of some numbers.
struct Range {
    double least; ///< the smallest
    double greatest; ///< the greatest
};

/// Loops over arrays of numbers.
struct NumberLoops {
    /// Widens \a range so that it includes \a count more numbers; NaN are skipped.
    void (*widenRange)(const double* numbers, std::ptrdiff_t count, Range& range);

    /// Writes each value times \a factor, truncated. \pre the products lie between 0 and 255.
    void (*writeProducts)(const double* values, int count, double factor, quint8* truncated);
};

} // namespace vx::kernels
