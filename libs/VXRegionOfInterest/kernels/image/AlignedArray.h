#pragma once

#include "ImageMemory.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <type_traits>

namespace vx::kernels {

/// An uninitialised array aligned to a cache line, so that no vector that loops load crosses two of them.
///
/// The allocator is not asked for that alignment, because it may leave gaps between blocks that nothing fits
/// into: memory would grow from picture to picture.
template <typename Number> class AlignedArray {
    static_assert(std::is_trivial_v<Number>, "elements are never constructed");

public:
    /// Allocates \a count numbers and writes none: filling as much memory as an image has takes as long as the
    /// arithmetic. \throws std::bad_alloc
    explicit AlignedArray(std::size_t count)
        : memory(new unsigned char[count * sizeof(Number) + cacheLine])
    {
        void* begin = memory.get();
        std::size_t space = count * sizeof(Number) + cacheLine;
        numbers = static_cast<Number*>(std::align(cacheLine, count * sizeof(Number), begin, space));
        adviseLargePages(numbers, count * sizeof(Number));
    }

    /// Allocates \a count numbers, all \a number. \throws std::bad_alloc
    AlignedArray(std::size_t count, Number number)
        : AlignedArray(count)
    {
        std::fill_n(numbers, count, number);
    }

    /// The first number.
    Number* get() const { return numbers; }
    /// The number at \a index.
    Number& operator[](std::size_t index) const { return numbers[index]; }

private:
    static constexpr std::size_t cacheLine = 64; ///< bytes

    // NOLINTNEXTLINE(*-avoid-c-arrays): standard containers initialise their elements
    std::unique_ptr<unsigned char[]> memory;
    Number* numbers;
};

} // namespace vx::kernels
