#pragma once

namespace benchmarks {

/// Registers every class and its plain reference.
void registerClasses();

/// Registers what goes from a picture in memory to its crop.
void registerCrops();

/// Registers the kernels that take longest with each variant of the loops, and the maximum filter with its extremes.
void registerLoops();

/// Registers what is measured around a whole analysis: its memory, threads and processes.
void registerProcesses();

} // namespace benchmarks
