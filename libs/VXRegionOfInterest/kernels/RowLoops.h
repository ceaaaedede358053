#pragma once

#include <vector>

/// \file
/// What a kernel asks of the processor: its innermost loops, over rows of pixels and of numbers.
///
/// Every variant gives the same results to the bit. A kernel takes its loops as an argument,
/// fastestRowLoops() unless a test or a benchmark asks for others.

namespace vx::kernels {

struct BackgroundLoops;
struct BlendLoops;
struct DilationLoops;
struct EdgeLoops;
struct HistogramLoops;
struct NumberLoops;
struct PixelLoops;
struct SurroundLoops;

/// The loops as they are compiled for one kind of processor: tables of functions, each declared in the room
/// of the kernels that call it.
struct RowLoops {
    const char* name; ///< the kind of processor: "plain", "avx2" or "avx512"
    const PixelLoops& pixels; ///< what several kernels do with pixels
    const NumberLoops& numbers; ///< what several kernels do with numbers
    const BackgroundLoops& background; ///< of the background map
    const BlendLoops& blend; ///< of the blend
    const DilationLoops& dilation; ///< of the dilation
    const EdgeLoops& edges; ///< of the edge response
    const HistogramLoops& histogram; ///< of the chroma histograms
    const SurroundLoops& surround; ///< of the surround contrast
};

/// The variants that this processor can run, from the plainest to the fastest.
std::vector<const RowLoops*> availableRowLoops();

/// The last of them, chosen once.
const RowLoops& fastestRowLoops();

} // namespace vx::kernels
