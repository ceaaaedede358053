#pragma once

#include <QRgb>

namespace vx::kernels {

/// A colour in CIE 1976 L*a*b*, where the distance of two colours is about how different they look.
struct Lab {
    double lightness; ///< 0 to 100
    double a; ///< from green, below 0, to red
    double b; ///< from blue, below 0, to yellow
};

/// Converts an 0xAARRGGBB word, whose alpha is ignored, from sRGB (IEC 61966-2-1) with the white point D65.
/// Up to rounding, a and b of greys are 0.
Lab labOf(QRgb colour);

/// The Euclidean distance of two colours.
double distance(const Lab& one, const Lab& other);

} // namespace vx::kernels
