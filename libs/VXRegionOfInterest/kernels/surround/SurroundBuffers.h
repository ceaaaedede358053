#pragma once

#include "../image/AlignedArray.h"
#include "SurroundLoops.h"

namespace vx::kernels {

/// So many numbers, and the margin beyond them.
inline std::size_t withMargin(int count) { return static_cast<std::size_t>(count) + rowMargin; }

/// A row of packed channels, of zeros at first, with the margins that its loops need.
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

/// Sums of surrounds, of zeros at first, with the margin that their loops need.
class SurroundSumsBuffer {
public:
    /// For \a columns sums of each channel.
    explicit SurroundSumsBuffer(int columns)
        : count(columns)
        , red(withMargin(columns), 0)
        , green(withMargin(columns), 0)
        , blue(withMargin(columns), 0)
    {
    }

    /// All of them.
    SurroundSums sums() const { return { red.get(), green.get(), blue.get(), count }; }

private:
    int count;
    AlignedArray<quint32> red;
    AlignedArray<quint32> green;
    AlignedArray<quint32> blue;
};

} // namespace vx::kernels
