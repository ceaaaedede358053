#pragma once

#include <functional>

namespace support {

/// Whether a sanitizer manages the memory of this process: then figures of it say little.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool isSanitized = true;
#elif defined(__has_feature)
constexpr bool isSanitized = __has_feature(address_sanitizer) || __has_feature(thread_sanitizer);
#else
constexpr bool isSanitized = false;
#endif

/// The memory of this process that is resident, in bytes; 0 where the system does not tell.
double residentMemory();

/// The addresses of this process that lead somewhere, in bytes; 0 where the system does not tell.
double addressSpace();

/// The most memory, in bytes, that \a work takes beyond what is resident before it; measured in a
/// process of its own. 0 where the system does not tell.
double peakMemoryOf(const std::function<void()>& work);

} // namespace support
