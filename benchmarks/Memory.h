#pragma once

#include <functional>

namespace benchmarks {

/// The most memory, in bytes, that \a work takes beyond what is there before it; measured in a process
/// of its own. 0 where the system does not tell.
double peakMemoryOf(const std::function<void()>& work);

} // namespace benchmarks
