#pragma once

#include "../RowLoops.h"
#include "../image/AlignedArray.h"
#include "DilationLoops.h"

#include <QtGlobal>

#include <algorithm>
#include <cstddef>
#include <type_traits>
#include <utility>

/// \file
/// Sliding maxima along the rows and down the columns of a plane of keys: the two halves of a dilation
/// whose structuring element is a cross. Keys are numbers of 0 and above; 0 spreads nowhere.

namespace vx::kernels {

/// A key for each pixel of an image, row by row.
template <typename Key> struct KeyPlane {
    int width; ///< keys in a row
    int height; ///< rows
    AlignedArray<Key> keys; ///< all of them

    /// Keys that nobody has written yet.
    KeyPlane(int columns, int rows)
        : width(columns)
        , height(rows)
        , keys(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows))
    {
    }

    /// The keys of row \a y.
    Key* row(std::ptrdiff_t y) const { return keys.get() + y * width; }
};

/// Writes the greater of each two keys; the three arrays do not overlap.
template <typename Key>
void writeGreater(const Key* __restrict a, const Key* __restrict b, std::ptrdiff_t count,
    Key* __restrict greater, const RowLoops& loops)
{
    if constexpr (std::is_same_v<Key, quint8>) {
        loops.dilation.writeMaxima(a, b, count, greater);
    } else {
        for (std::ptrdiff_t i = 0; i < count; ++i)
            greater[i] = a[i] > b[i] ? a[i] : b[i];
    }
}

/// Raises keys to those of another array, where these are greater.
template <typename Key>
void raise(
    Key* __restrict keys, const Key* __restrict others, std::ptrdiff_t count, const RowLoops& loops)
{
    if constexpr (std::is_same_v<Key, quint8>) {
        loops.dilation.writeMaxima(keys, others, count, keys);
    } else {
        for (std::ptrdiff_t i = 0; i < count; ++i)
            keys[i] = keys[i] > others[i] ? keys[i] : others[i];
    }
}

/// The maxima of a row's keys over windows that reach `radius` to either side.
///
/// They come from maxima over 1, 2, 4, 8 ... keys, each made of the one before; two of the last that
/// fits cover a window. So the cost hardly depends on the radius, and all of it is maxima side by side.
template <typename Key> class MaximaAlongRow {
public:
    /// \pre \a rowWidth and \a radius are above 0.
    MaximaAlongRow(int rowWidth, int radius, const RowLoops& rowLoops)
        : loops(rowLoops)
        , width(rowWidth)
        , reach(std::min(radius, rowWidth - 1))
        , covered(static_cast<std::size_t>(width + 2 * reach))
        , doubled(static_cast<std::size_t>(width + 2 * reach))
        , maxima(static_cast<std::size_t>(width))
    {
    }

    /// Those of a row of keys; valid until the next call.
    const Key* of(const Key* keys)
    {
        if (reach == width - 1) { // every window covers the whole row
            Key greatest = 0;
            for (std::ptrdiff_t x = 0; x < width; ++x)
                greatest = std::max(greatest, keys[x]);
            std::fill_n(maxima.get(), width, greatest);
            return maxima.get();
        }
        std::fill_n(covered.get(), reach, Key { 0 });
        std::copy_n(keys, width, covered.get() + reach);
        std::fill_n(covered.get() + reach + width, reach, Key { 0 });
        const std::ptrdiff_t window = 2 * reach + 1;
        std::ptrdiff_t count = width + 2 * reach;
        std::ptrdiff_t span = 1;
        for (; 2 * span <= window; span *= 2) {
            count -= span;
            writeGreater(covered.get(), covered.get() + span, count, doubled.get(), loops);
            std::swap(covered, doubled);
        }
        writeGreater(covered.get(), covered.get() + window - span, width, maxima.get(), loops);
        return maxima.get();
    }

private:
    const RowLoops& loops;
    std::ptrdiff_t width;
    std::ptrdiff_t reach;
    AlignedArray<Key> covered; ///< the row between zeros, each the maximum of the keys from it on
    AlignedArray<Key> doubled; ///< the same of twice as many keys
    AlignedArray<Key> maxima;
};

/// The maxima of a plane's rows over windows that reach `radius` up and down, at a cost that does not
/// depend on the radius: blocks of one window's rows, and for each window the maximum of a block from
/// some row of it on and of the next block up to some row of it (van Herk 1992, Gil and Werman 1993).
/// Blocks begin at the rows that windows begin at, the first of them above the plane.
template <typename Key> class MaximaOfRows {
public:
    /// \pre \a keyPlane is not empty and outlives this, and \a radius is above 0.
    MaximaOfRows(const KeyPlane<Key>& keyPlane, int radius, const RowLoops& rowLoops)
        : loops(rowLoops)
        , plane(keyPlane)
        , width(plane.width)
        , height(plane.height)
        , reach(std::min(radius, plane.height - 1))
        , window(2 * reach + 1)
        , toEnd(static_cast<std::size_t>(std::min(window, height) * width))
        , fromBegin(static_cast<std::size_t>(width))
        , maxima(static_cast<std::size_t>(width))
    {
    }

    /// The maxima of row \a y; to be called for rows 0, 1, 2 ... in order. Valid until the next call.
    const Key* next(int y)
    {
        if (y % window == 0)
            beginBlock(y - reach);
        else if (y + reach < height)
            raise(fromBegin.get(), plane.row(y + reach), width, loops);
        writeGreater(rowToEnd(y - reach), fromBegin.get(), width, maxima.get(), loops);
        return maxima.get();
    }

private:
    Key* rowToEnd(std::ptrdiff_t y) const
    {
        return toEnd.get() + (std::max<std::ptrdiff_t>(y, 0) - firstInBlock) * width;
    }

    void beginBlock(std::ptrdiff_t first)
    {
        const std::ptrdiff_t last = std::min(first + window, height) - 1;
        firstInBlock = std::max<std::ptrdiff_t>(first, 0);
        std::copy_n(plane.row(last), width, rowToEnd(last));
        for (std::ptrdiff_t y = last - 1; y >= firstInBlock; --y)
            writeGreater(plane.row(y), rowToEnd(y + 1), width, rowToEnd(y), loops);
        std::fill_n(fromBegin.get(), width, Key { 0 });
    }

    const RowLoops& loops;
    const KeyPlane<Key>& plane;
    std::ptrdiff_t width;
    std::ptrdiff_t height;
    std::ptrdiff_t reach;
    std::ptrdiff_t window;
    std::ptrdiff_t firstInBlock = 0;
    AlignedArray<Key> toEnd; ///< of the block's rows inside the plane, each from it on
    AlignedArray<Key> fromBegin; ///< of the next block's rows so far
    AlignedArray<Key> maxima;
};

} // namespace vx::kernels
