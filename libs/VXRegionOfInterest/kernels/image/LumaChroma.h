#pragma once

#include "ExactArithmetic.h"

#include "../RowLoops.h"
#include "LumaWeights.h"

#include <QImage>
#include <QRgb>

namespace vx::kernels {

/// Luma and the two colour differences (chromas) of a pixel, each 0 to 255; see LumaWeights.h.
struct LumaChroma {
    double luma; ///< 0 to 255
    double redDifference; ///< Cr, 128 for greys
    double blueDifference; ///< Cb, 128 for greys
};

/// Converts an 0xAARRGGBB word, whose alpha is ignored; nothing is rounded.
inline LumaChroma lumaChromaOf(QRgb pixel)
{
    const double luma
        = lumaOfRed * qRed(pixel) + lumaOfGreen * qGreen(pixel) + lumaOfBlue * qBlue(pixel);
    return { luma, (qRed(pixel) - luma) * redDifferenceScale + chromaOfGrey,
        (qBlue(pixel) - luma) * blueDifferenceScale + chromaOfGrey };
}

/// The same, truncated and packed: luma in the red byte, the blue difference in the green byte, the
/// red difference in the blue byte, opaque.
inline QRgb packedLumaChromaOf(QRgb pixel)
{
    const LumaChroma colour = lumaChromaOf(pixel);
    return qRgb(static_cast<int>(colour.luma), static_cast<int>(colour.blueDifference),
        static_cast<int>(colour.redDifference));
}

/// Writes packedLumaChromaOf() of the upper left part of \a words into that of \a target; \a size says how large it is.
/// \pre both images have 32 bits per pixel and are at least as large as \a size.
void packLumaChroma(const QImage& words, const QSize& size, QImage& target,
    const RowLoops& loops = fastestRowLoops());

} // namespace vx::kernels
