#pragma once

#include "../image/AlignedArray.h"
#include "SurroundLoops.h"

namespace vx::kernels {

/// So many numbers, and the margin after them.
inline std::size_t withMargin(int count) { return static_cast<std::size_t>(count) + rowMargin; }

/// A packed row, zero at first, with the margins that its loops need.
class PackedRowBuffer {
public:
    /// For \a width columns.
    explicit PackedRowBuffer(int width)
        : redBlue(rowMargin + withMargin(width), 0)
        , green(rowMargin + withMargin(width), 0)
    {
    }

    /// The row between its margins.
    PackedRow row() const { return { redBlue.get() + rowMargin, green.get() + rowMargin }; }

private:
    AlignedArray<quint32> redBlue;
    AlignedArray<quint32> green;
};

/// Prefix sums, zero at first, with the margin that their loops need.
class PrefixSumsBuffer {
public:
    /// For \a sumCount sums of each channel.
    explicit PrefixSumsBuffer(int sumCount)
        : count(sumCount)
        , red(withMargin(count), 0)
        , green(withMargin(count), 0)
        , blue(withMargin(count), 0)
    {
    }

    /// All of them.
    PrefixSums sums() const { return { red.get(), green.get(), blue.get(), count }; }

private:
    int count;
    AlignedArray<quint32> red;
    AlignedArray<quint32> green;
    AlignedArray<quint32> blue;
};

} // namespace vx::kernels
