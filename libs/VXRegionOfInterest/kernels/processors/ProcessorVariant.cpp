#include "../image/ExactArithmetic.h"

#include "../RowLoops.h"
#include "../background/BackgroundLoops.h"
#include "../blend/BlendLoops.h"
#include "../dilation/DilationLoops.h"
#include "../edges/EdgeLoops.h"
#include "../histogram/HistogramLoops.h"
#include "../image/LumaWeights.h"
#include "../image/NumberLoops.h"
#include "../image/PixelLoops.h"
#include "../surround/SurroundLoops.h"

#ifdef __SSE2__
#include <immintrin.h>
#endif

// All loops, as they are compiled for one kind of processor.
//
// This file is compiled once for each of them, with flags of its own, under the name that VXROI_LOOPS gives. Everything
// but the table of loops is local to it, and no function comes from a header, those of the standard library included:
// the linker keeps one copy of an inline function for the whole library, and that must not be one that some processor
// cannot run.
#ifndef VXROI_LOOPS
#define VXROI_LOOPS plain
#endif

#define VX_ALWAYS_INLINE [[gnu::always_inline]] inline
#define VX_STRINGIFIED(name) #name
#define VX_NAME_OF(name) VX_STRINGIFIED(name)

namespace {

using namespace vx::kernels;

constexpr quint32 redBlueMask = 0x00FF00FFU;
constexpr quint32 greenMask = 0x0000FF00U;
constexpr quint32 opaque = 0xFF000000U;

// Shifts, because not every processor multiplies vectors of 32-bit numbers.
VX_ALWAYS_INLINE QRgb grey(QRgb byte) { return byte << 16U | byte << 8U | byte; }

VX_ALWAYS_INLINE QRgb opaqueGrey(int level) { return opaque | grey(static_cast<QRgb>(level)); }

// a · b + c, where it does not matter whether the product is rounded.
VX_ALWAYS_INLINE double multiplyAdd(double a, double b, double c)
{
#ifdef __FMA__
    return __builtin_fma(a, b, c);
#else
    return a * b + c;
#endif
}

// These first, because others use them.
#include "Vectors.inl"

#include "../image/Numbers.inl"

#include "../image/LumaChroma.inl"
#include "../image/Pixels.inl"

#include "../surround/FilterEstimates.inl"
#include "../surround/FilterSums.inl"

#include "../surround/ContrastStretch.inl"

#include "../background/Background.inl"
#include "../blend/Blend.inl"
#include "../dilation/Dilation.inl"
#include "../edges/EdgeResponse.inl"
#include "../histogram/ChromaBins.inl"

constexpr PixelLoops ofPixels = pixelLoops();
constexpr NumberLoops ofNumbers = numberLoops();
constexpr BackgroundLoops ofBackground = backgroundLoops();
constexpr BlendLoops ofBlend = blendLoops();
constexpr DilationLoops ofDilation = dilationLoops();
constexpr EdgeLoops ofEdges = edgeLoops();
constexpr HistogramLoops ofHistogram = histogramLoops();
constexpr SurroundLoops ofSurround = surroundLoops();

} // namespace

namespace vx::kernels::loops {

extern const RowLoops VXROI_LOOPS;
constexpr RowLoops VXROI_LOOPS = { VX_NAME_OF(VXROI_LOOPS), ofPixels, ofNumbers, ofBackground,
    ofBlend, ofDilation, ofEdges, ofHistogram, ofSurround };

} // namespace vx::kernels::loops
