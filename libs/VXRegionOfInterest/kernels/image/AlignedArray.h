#pragma once

#include "ImageMemory.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <type_traits>

namespace vx::kernels {

/// Numbers, from the begin of a cache line on: loops that load whole vectors are slower when those lie
/// across two.
///
/// The allocator is not asked for that alignment, because it may leave gaps behind that nothing fits
/// into: memory would grow from picture to picture.
template <typename Number> class AlignedArray {
    static_assert(std::is_trivial_v<Number>, "nobody constructs them");

public:
    /// Numbers that nobody fills with zeros first: for as much memory as an image has, that takes as long
    /// as the arithmetic.
    explicit AlignedArray(std::size_t count)
        : memory(new unsigned char[count * sizeof(Number) + cacheLine])
    {
        void* begin = memory.get();
        std::size_t space = count * sizeof(Number) + cacheLine;
        numbers = static_cast<Number*>(std::align(cacheLine, count * sizeof(Number), begin, space));
        adviseLargePages(numbers, count * sizeof(Number));
    }

    /// As many times \a number.
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
    static constexpr std::size_t cacheLine = 64;

    // NOLINTNEXTLINE(*-avoid-c-arrays): standard containers fill what they hold
    std::unique_ptr<unsigned char[]> memory;
    Number* numbers;
};

} // namespace vx::kernels
