#pragma once

#include <cstddef>
#include <memory>

namespace vx::kernels {

/// Numbers that nobody fills with zeros first: for as much memory as an image has, that takes as long as
/// the arithmetic.
template <typename Number>
// NOLINTNEXTLINE(*-avoid-c-arrays): standard containers fill what they hold
using UninitializedArray = std::unique_ptr<Number[]>;

template <typename Number> UninitializedArray<Number> uninitializedArray(std::size_t count)
{
    return UninitializedArray<Number>(new Number[count]);
}

} // namespace vx::kernels
