#pragma once

#include <QtGlobal>

#include <cstddef>
#include <memory>

namespace vx::kernels {

/// Bytes that nobody fills with zeros first: for as much memory as an image has, that takes as long as
/// the arithmetic.
inline std::unique_ptr<quint8[]> uninitializedBytes(std::size_t count)
{
    return std::unique_ptr<quint8[]>(new quint8[count]);
}

} // namespace vx::kernels
