#pragma once

#include "LargePages.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>

namespace vx::kernels {

/// Where arrays begin: loops that load whole vectors are slower when those lie across cache lines.
constexpr std::align_val_t cacheLine { 64 };

/// Gives an AlignedArray's memory back.
struct AlignedDelete {
    void operator()(void* memory) const { ::operator delete[](memory, cacheLine); }
};

/// Numbers, from the begin of a cache line on.
template <typename Number>
// NOLINTNEXTLINE(*-avoid-c-arrays): standard containers fill what they hold
using AlignedArray = std::unique_ptr<Number[], AlignedDelete>;

/// Numbers that nobody fills with zeros first: for as much memory as an image has, that takes as long as
/// the arithmetic.
template <typename Number> AlignedArray<Number> uninitializedArray(std::size_t count)
{
    void* const memory = ::operator new[](count * sizeof(Number), cacheLine);
    adviseLargePages(memory, count * sizeof(Number));
    return AlignedArray<Number>(static_cast<Number*>(memory));
}

/// As many times \a number.
template <typename Number> AlignedArray<Number> filledArray(std::size_t count, Number number)
{
    AlignedArray<Number> array = uninitializedArray<Number>(count);
    std::fill_n(array.get(), count, number);
    return array;
}

} // namespace vx::kernels
