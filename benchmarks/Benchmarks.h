#pragma once

namespace benchmarks {

/// Registers every class and its plain reference, and what the two are compared by.
void registerAll();

} // namespace benchmarks
