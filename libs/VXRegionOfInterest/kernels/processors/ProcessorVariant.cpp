#include "../image/ExactArithmetic.h"

#include "../RowLoops.h"

#ifdef __SSE2__
#include <immintrin.h>
#endif

// Compiled more than once, with flags for different processors, under the name that VXROI_LOOPS
// gives. Everything but the table of loops is local to this file and nothing is taken from headers,
// inline functions of the standard library included: the linker keeps one copy of such a function,
// and it must not be one that this processor cannot run.
#ifndef VXROI_LOOPS
#define VXROI_LOOPS plain
#endif

#define VX_ALWAYS_INLINE [[gnu::always_inline]] inline
#define VX_STRINGIFIED(name) #name
#define VX_NAME_OF(name) VX_STRINGIFIED(name)

namespace {

using namespace vx::kernels;

VX_ALWAYS_INLINE double redOf(QRgb pixel) { return static_cast<int>(pixel >> 16U & 0xFFU); }
VX_ALWAYS_INLINE double greenOf(QRgb pixel) { return static_cast<int>(pixel >> 8U & 0xFFU); }
VX_ALWAYS_INLINE double blueOf(QRgb pixel) { return static_cast<int>(pixel & 0xFFU); }

// Shifts, because not every processor multiplies vectors of 32-bit numbers.
VX_ALWAYS_INLINE QRgb grey(QRgb byte) { return byte << 16U | byte << 8U | byte; }

VX_ALWAYS_INLINE QRgb opaqueGrey(int level) { return 0xFF000000U | grey(static_cast<QRgb>(level)); }

// See LumaChroma.h.
VX_ALWAYS_INLINE void toLumaChroma(double red, double green, double blue, double& luma,
    double& redDifference, double& blueDifference)
{
    luma = 0.299 * red + 0.587 * green + 0.114 * blue;
    redDifference = (red - luma) * 0.713 + 128.0;
    blueDifference = (blue - luma) * 0.564 + 128.0;
}

// a · b + c, where it does not matter whether the product is rounded.
VX_ALWAYS_INLINE double multiplyAdd(double a, double b, double c)
{
#ifdef __FMA__
    return __builtin_fma(a, b, c);
#else
    return a * b + c;
#endif
}

// These first, because others stand on them.
#include "Vectors.inl"

#include "../image/Numbers.inl"

#include "../image/Pixels.inl"

#include "../surround/Estimates.inl"
#include "../surround/Surrounds.inl"

#include "../surround/Contrast.inl"

#include "../background/Background.inl"
#include "../blend/Blend.inl"
#include "../dilation/Dilation.inl"
#include "../edges/EdgeResponse.inl"
#include "../histogram/ChromaBins.inl"

} // namespace

namespace vx::kernels::loops {

extern const RowLoops VXROI_LOOPS;
constexpr RowLoops VXROI_LOOPS = { VX_NAME_OF(VXROI_LOOPS), pixelLoops(), numberLoops(),
    contrastLoops(), blendLoops(), chromaLoops(), edgeLoops(), dilationLoops(), backgroundLoops() };

} // namespace vx::kernels::loops
