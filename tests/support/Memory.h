#pragma once

#include <functional>

namespace support {

/// Whether a sanitizer manages the memory of this process: then figures of it say little.
#ifdef __SANITIZE_ADDRESS__
constexpr bool isSanitized = true;
#else
constexpr bool isSanitized = false;
#endif

/// The memory of this process that is resident, in bytes; 0 where the system does not tell.
double residentMemory();

/// The most memory, in bytes, that \a work takes beyond what is resident before it; measured in a
/// process of its own. 0 where the system does not tell.
double peakMemoryOf(const std::function<void()>& work);

/// How many pages of memory this process has been given so far, fresh ones among them.
long pagesTakenIn();

} // namespace support
