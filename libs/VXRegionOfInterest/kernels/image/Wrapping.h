#pragma once

#include <type_traits>

/// \file
/// Signed arithmetic that wraps around, where overflow would be undefined.

namespace vx::kernels {

/// a + b, modulo 2 to the number of bits.
template <typename Integer> constexpr Integer wrappingSum(Integer a, Integer b)
{
    using Unsigned = std::make_unsigned_t<Integer>;
    return static_cast<Integer>(static_cast<Unsigned>(a) + static_cast<Unsigned>(b));
}

/// a - b, modulo 2 to the number of bits.
template <typename Integer> constexpr Integer wrappingDifference(Integer a, Integer b)
{
    using Unsigned = std::make_unsigned_t<Integer>;
    return static_cast<Integer>(static_cast<Unsigned>(a) - static_cast<Unsigned>(b));
}

/// a · b, modulo 2 to the number of bits.
template <typename Integer> constexpr Integer wrappingProduct(Integer a, Integer b)
{
    using Unsigned = std::make_unsigned_t<Integer>;
    return static_cast<Integer>(static_cast<Unsigned>(a) * static_cast<Unsigned>(b));
}

} // namespace vx::kernels
