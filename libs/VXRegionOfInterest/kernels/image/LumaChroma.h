#pragma once

#include "ExactArithmetic.h"

#include "../RowLoops.h"

#include <QImage>
#include <QRgb>

namespace vx::kernels {

/// Luma and the two colour differences of a pixel (the weights are those of ITU-R BT.601, the
/// differences are scaled and moved so that they fill 0 to 255 as well).
struct LumaChroma {
    double luma; ///< 0 to 255
    double redDifference; ///< Cr, 128 for greys
    double blueDifference; ///< Cb, 128 for greys
};

/// Converts an 0xAARRGGBB word, whose alpha is ignored; nothing is rounded.
inline LumaChroma lumaChromaOf(QRgb pixel)
{
    const double luma = 0.299 * qRed(pixel) + 0.587 * qGreen(pixel) + 0.114 * qBlue(pixel);
    return { luma, (qRed(pixel) - luma) * 0.713 + 128, (qBlue(pixel) - luma) * 0.564 + 128 };
}

/// The same, truncated and packed: luma in the red byte, the blue difference in the green byte, the
/// red difference in the blue byte, opaque.
inline QRgb packedLumaChromaOf(QRgb pixel)
{
    const LumaChroma colour = lumaChromaOf(pixel);
    return qRgb(static_cast<int>(colour.luma), static_cast<int>(colour.blueDifference),
        static_cast<int>(colour.redDifference));
}

/// Packs, as packedLumaChromaOf() does, the first rows and columns of \a words into \a target, as many as \a size says.
/// \pre both images have 32 bits per pixel and are at least as large as \a size.
void packLumaChroma(const QImage& words, const QSize& size, QImage& target,
    const RowLoops& loops = fastestRowLoops());

} // namespace vx::kernels
