#include "GreySpreading.h"

#include <algorithm>

namespace {

using namespace vx::kernels;

// The maxima of a row's bytes over windows that reach an arm to either side. They come from maxima over
// 1, 2, 4, 8 ... bytes, each made of the one before; two of the last that fits cover a window. So the
// cost hardly depends on the arm, and all of it is maxima of bytes side by side.
class MaximaAlongRow {
public:
    MaximaAlongRow(int rowWidth, int arm, const RowLoops& rowLoops)
        : loops(rowLoops)
        , width(rowWidth)
        , reach(std::min(arm, rowWidth - 1))
        , byteCount(width + 2 * reach)
        , covered(static_cast<std::size_t>(byteCount))
        , maxima(static_cast<std::size_t>(width))
    {
    }

    // Those of a row of keys; valid until the next call. Beyond both ends there are zeros.
    const quint8* of(const quint8* keys)
    {
        std::fill_n(covered.get(), reach, quint8 { 0 });
        std::copy_n(keys, width, covered.get() + reach);
        std::fill_n(covered.get() + reach + width, reach, quint8 { 0 });
        if (reach == width - 1)
            return ofAll();
        const std::ptrdiff_t window = 2 * reach + 1;
        std::ptrdiff_t count = byteCount;
        std::ptrdiff_t span = 1;
        for (; 2 * span <= window; span *= 2) {
            count -= span;
            loops.writeMaxima(covered.get(), covered.get() + span, count, covered.get());
        }
        loops.writeMaxima(covered.get(), covered.get() + window - span, width, maxima.get());
        return maxima.get();
    }

private:
    // Every window reaches over all bytes: folds them in half until one is left.
    const quint8* ofAll()
    {
        quint8* const all = covered.get() + reach;
        for (std::ptrdiff_t count = width; count > 1; count = (count + 1) / 2)
            loops.writeMaxima(all, all + count / 2, (count + 1) / 2, all);
        std::fill_n(maxima.get(), width, *all);
        return maxima.get();
    }

    const RowLoops& loops;
    std::ptrdiff_t width;
    std::ptrdiff_t reach;
    std::ptrdiff_t byteCount;
    AlignedArray<quint8> covered;
    AlignedArray<quint8> maxima;
};

// The maxima of rows over windows that reach an arm up and down, at a cost that does not depend on the
// arm: blocks of one window's rows, and for each window the maximum of a block from some row of it on and
// of the next block up to some row of it (van Herk 1992, Gil and Werman 1993). Blocks begin at the rows
// that windows begin at, the first of them above the image.
class MaximaOfRows {
public:
    MaximaOfRows(const BytePlane& plane, int arm, const RowLoops& rowLoops)
        : loops(rowLoops)
        , keys(plane)
        , width(plane.width)
        , height(plane.height)
        , reach(std::min(arm, plane.height - 1))
        , window(2 * reach + 1)
        , toEnd(static_cast<std::size_t>(std::min(window, height) * width))
        , fromBegin(static_cast<std::size_t>(width))
        , maxima(static_cast<std::size_t>(width))
    {
    }

    // Row y, which is the one after the last, or 0; valid until the next call.
    const quint8* next(int y)
    {
        if (y % window == 0)
            beginBlock(y - reach);
        else if (y + reach < height)
            loops.writeMaxima(fromBegin.get(), row(y + reach), width, fromBegin.get());
        loops.writeMaxima(rowToEnd(y - reach), fromBegin.get(), width, maxima.get());
        return maxima.get();
    }

private:
    const quint8* row(std::ptrdiff_t y) const { return keys.row(static_cast<int>(y)); }

    quint8* rowToEnd(std::ptrdiff_t y) const
    {
        return toEnd.get() + (std::max<std::ptrdiff_t>(y, 0) - firstInBlock) * width;
    }

    void beginBlock(std::ptrdiff_t first)
    {
        const std::ptrdiff_t last = std::min(first + window, height) - 1;
        firstInBlock = std::max<std::ptrdiff_t>(first, 0);
        std::copy_n(row(last), width, rowToEnd(last));
        for (std::ptrdiff_t y = last - 1; y >= firstInBlock; --y)
            loops.writeMaxima(row(y), rowToEnd(y + 1), width, rowToEnd(y));
        std::fill_n(fromBegin.get(), width, quint8 { 0 });
    }

    const RowLoops& loops;
    const BytePlane& keys;
    std::ptrdiff_t width;
    std::ptrdiff_t height;
    std::ptrdiff_t reach;
    std::ptrdiff_t window;
    std::ptrdiff_t firstInBlock = 0;
    AlignedArray<quint8> toEnd; ///< of the block's rows inside the image, each from it on
    AlignedArray<quint8> fromBegin; ///< of the next block's rows so far
    AlignedArray<quint8> maxima;
};

} // namespace

void vx::kernels::spreadKeys(const BytePlane& keys, int arm, const RowLoops& loops,
    const std::function<void(int, const quint8*, const quint8*)>& receive)
{
    MaximaAlongRow alongRow(keys.width, arm, loops);
    MaximaOfRows ofRows(keys, arm, loops);
    for (int y = 0; y < keys.height; ++y)
        receive(y, alongRow.of(keys.row(y)), ofRows.next(y));
}
