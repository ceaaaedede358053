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
/// Sliding maxima along the rows and down the columns of a plane of keys: the two halves of a dilation whose structuring
/// element is a cross. Keys are not negative, and the border is padded with zeros.

namespace vx::kernels {

/// A key for each pixel of an image, row by row.
template <typename Key> struct KeyPlane {
    int width; ///< keys in a row
    int height; ///< rows
    AlignedArray<Key> keys; ///< all of them

    /// Keys that are not initialised.
    KeyPlane(int columns, int rows)
        : width(columns)
        , height(rows)
        , keys(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows))
    {
    }

    /// The keys of row \a y.
    Key* row(std::ptrdiff_t y) const { return keys.get() + y * width; }
};

/// Writes the greater of each pair of keys; the three arrays do not overlap.
template <typename Key>
void writeMaxima(const Key* __restrict a, const Key* __restrict b, std::ptrdiff_t count,
    Key* __restrict maxima, const RowLoops& loops)
{
    if constexpr (std::is_same_v<Key, quint8>) {
        loops.dilation.writeMaxima(a, b, count, maxima);
    } else {
        for (std::ptrdiff_t i = 0; i < count; ++i)
            maxima[i] = a[i] > b[i] ? a[i] : b[i];
    }
}

/// Replaces keys by those of another array where these are greater.
template <typename Key>
void raiseTo(
    Key* __restrict keys, const Key* __restrict others, std::ptrdiff_t count, const RowLoops& loops)
{
    if constexpr (std::is_same_v<Key, quint8>) {
        loops.dilation.writeMaxima(keys, others, count, keys);
    } else {
        for (std::ptrdiff_t i = 0; i < count; ++i)
            keys[i] = keys[i] > others[i] ? keys[i] : others[i];
    }
}

/// The maxima of a row's keys over windows that extend by `radius` to either side.
///
/// Maxima over 1, 2, 4, 8 ... keys are made of each other, and two of the last that fits cover a window. So the cost is
/// logarithmic in the radius, and all of it runs in vectors.
template <typename Key> class MaximaAlongRow {
public:
    /// \pre \a rowWidth and \a windowRadius are above 0.
    MaximaAlongRow(int rowWidth, int windowRadius, const RowLoops& rowLoops)
        : loops(rowLoops)
        , width(rowWidth)
        , radius(std::min(windowRadius, rowWidth - 1))
        , covered(static_cast<std::size_t>(width + 2 * radius))
        , doubled(static_cast<std::size_t>(width + 2 * radius))
        , maxima(static_cast<std::size_t>(width))
    {
    }

    /// The maxima of a row of keys; valid until the next call.
    const Key* of(const Key* keys)
    {
        if (radius == width - 1) { // every window covers the whole row
            Key greatest = 0;
            for (std::ptrdiff_t x = 0; x < width; ++x)
                greatest = std::max(greatest, keys[x]);
            std::fill_n(maxima.get(), width, greatest);
            return maxima.get();
        }
        std::fill_n(covered.get(), radius, Key { 0 });
        std::copy_n(keys, width, covered.get() + radius);
        std::fill_n(covered.get() + radius + width, radius, Key { 0 });
        const std::ptrdiff_t window = 2 * radius + 1;
        std::ptrdiff_t count = width + 2 * radius;
        std::ptrdiff_t span = 1;
        for (; 2 * span <= window; span *= 2) {
            count -= span;
            writeMaxima(covered.get(), covered.get() + span, count, doubled.get(), loops);
            std::swap(covered, doubled);
        }
        writeMaxima(covered.get(), covered.get() + window - span, width, maxima.get(), loops);
        return maxima.get();
    }

private:
    const RowLoops& loops;
    std::ptrdiff_t width;
    std::ptrdiff_t radius;
    AlignedArray<Key>
        covered; ///< the row between zeros; the maxima of windows of some power of two
    AlignedArray<Key> doubled; ///< the same for windows twice as wide
    AlignedArray<Key> maxima;
};

/// The maxima of a plane's columns over windows that extend by `radius` up and down, row by row.
///
/// The rows are divided into blocks as high as a window. A window consists of the end of one block and the beginning of
/// the next, and its maximum is that of a suffix and a prefix maximum (van Herk 1992, Gil and Werman 1993): three
/// comparisons per key, whatever the radius. The first block begins above the plane, where the first window does.
template <typename Key> class MaximaDownColumns {
public:
    /// \pre \a keyPlane is not empty and outlives this, and \a windowRadius is above 0.
    MaximaDownColumns(const KeyPlane<Key>& keyPlane, int windowRadius, const RowLoops& rowLoops)
        : loops(rowLoops)
        , plane(keyPlane)
        , width(plane.width)
        , height(plane.height)
        , radius(std::min(windowRadius, plane.height - 1))
        , window(2 * radius + 1)
        , suffixes(static_cast<std::size_t>(std::min(window, height) * width))
        , prefix(static_cast<std::size_t>(width))
        , maxima(static_cast<std::size_t>(width))
    {
    }

    /// The maxima around row \a y, to be asked for in the order 0, 1, 2 ...; valid until the next call.
    const Key* next(int y)
    {
        if (y % window == 0)
            beginBlock(y - radius);
        else if (y + radius < height)
            raiseTo(prefix.get(), plane.row(y + radius), width, loops);
        writeMaxima(suffixOf(y - radius), prefix.get(), width, maxima.get(), loops);
        return maxima.get();
    }

private:
    Key* suffixOf(std::ptrdiff_t y) const
    {
        return suffixes.get() + (std::max<std::ptrdiff_t>(y, 0) - firstInBlock) * width;
    }

    void beginBlock(std::ptrdiff_t first)
    {
        const std::ptrdiff_t last = std::min(first + window, height) - 1;
        firstInBlock = std::max<std::ptrdiff_t>(first, 0);
        std::copy_n(plane.row(last), width, suffixOf(last));
        for (std::ptrdiff_t y = last - 1; y >= firstInBlock; --y)
            writeMaxima(plane.row(y), suffixOf(y + 1), width, suffixOf(y), loops);
        std::fill_n(prefix.get(), width, Key { 0 });
    }

    const RowLoops& loops;
    const KeyPlane<Key>& plane;
    std::ptrdiff_t width;
    std::ptrdiff_t height;
    std::ptrdiff_t radius;
    std::ptrdiff_t window;
    std::ptrdiff_t firstInBlock = 0;
    AlignedArray<Key>
        suffixes; ///< suffix maxima of the block, for each of its rows inside the plane
    AlignedArray<Key> prefix; ///< prefix maximum of the next block, over its rows so far
    AlignedArray<Key> maxima;
};

} // namespace vx::kernels
