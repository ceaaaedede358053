#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace vx::kernels {

/// Replaces each key by the greatest within \a arm positions to either side, at a cost that does
/// not depend on the arm: blocks of one window's length, the running maxima of each block from both
/// ends, and for each window the maximum of the two that meet in it (van Herk 1992, Gil and Werman
/// 1993).
///
/// \param keys `length` positions of `lanes` keys each; the lanes are independent of each other.
/// \param arm at least 0; beyond length - 1 it reaches everything.
template <typename Key>
void slidingMaximum(std::vector<Key>& keys, std::size_t length, std::size_t lanes, std::size_t arm)
{
    if (length == 0 || arm == 0)
        return;
    arm = std::min(arm, length - 1);
    const std::size_t block = 2 * arm + 1;
    const auto writeMaximum = [lanes](Key* target, const Key* a, const Key* b) {
        for (std::size_t lane = 0; lane < lanes; ++lane)
            target[lane] = std::max(a[lane], b[lane]);
    };

    std::vector<Key> fromStart = keys; // maximum from the start of the block to here
    for (std::size_t i = 1; i < length; ++i) {
        Key* const here = &fromStart[i * lanes];
        if (i % block != 0)
            writeMaximum(here, here, here - lanes);
    }
    std::vector<Key> toEnd = keys; // maximum from here to the end of the block
    for (std::size_t i = length - 1; i > 0; --i) {
        Key* const here = &toEnd[i * lanes];
        if (i % block != 0)
            writeMaximum(here - lanes, here - lanes, here);
    }
    // A window beyond an end of the keys is cut off. One that starts with its block is that block's
    // beginning, one that ends with the keys in a block is that block's end, any other spans two
    // blocks: an end and a beginning.
    for (std::size_t i = 0; i < length; ++i) {
        const std::size_t first = i - std::min(i, arm);
        const std::size_t last = std::min(i + arm, length - 1);
        const bool spansTwoBlocks = first / block != last / block;
        const Key* const beginning = &fromStart[last * lanes];
        const Key* const end = &toEnd[first * lanes];
        if (spansTwoBlocks)
            writeMaximum(&keys[i * lanes], end, beginning);
        else
            std::copy_n(first % block == 0 ? beginning : end, lanes, &keys[i * lanes]);
    }
}

} // namespace vx::kernels
