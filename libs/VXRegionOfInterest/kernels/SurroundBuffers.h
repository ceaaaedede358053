#pragma once

#include "AlignedArray.h"
#include "loops/RowLoops.h"

namespace vx::kernels {

/// A row of packed channels, of zeros at first, with the margins that its loops need.
class PackedRowBuffer {
public:
    explicit PackedRowBuffer(int width)
        : redBlue(filledArray<quint32>(static_cast<std::size_t>(width + 2 * rowMargin), 0))
        , green(filledArray<quint32>(static_cast<std::size_t>(width + 2 * rowMargin), 0))
    {
    }

    PackedRow row() const { return { redBlue.get() + rowMargin, green.get() + rowMargin }; }

private:
    AlignedArray<quint32> redBlue;
    AlignedArray<quint32> green;
};

/// Sums of surrounds, of zeros at first, with the margin that their loops need.
class SurroundSumsBuffer {
public:
    explicit SurroundSumsBuffer(int columns)
        : count(columns)
        , red(filledArray<quint32>(static_cast<std::size_t>(columns + rowMargin), 0))
        , green(filledArray<quint32>(static_cast<std::size_t>(columns + rowMargin), 0))
        , blue(filledArray<quint32>(static_cast<std::size_t>(columns + rowMargin), 0))
    {
    }

    SurroundSums sums() const { return { red.get(), green.get(), blue.get(), count }; }

private:
    int count;
    AlignedArray<quint32> red;
    AlignedArray<quint32> green;
    AlignedArray<quint32> blue;
};

} // namespace vx::kernels
