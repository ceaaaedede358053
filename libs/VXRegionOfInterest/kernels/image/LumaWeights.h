#pragma once

/// \file
/// The constants of luma and chroma, in thousandths where loops need whole numbers. Each double is the one
/// nearest to the decimal fraction, as a quotient of whole numbers is.

namespace vx::kernels {

constexpr int lumaThousandthsOfRed = 299; ///< the weight of red in luma (ITU-R BT.601), times 1000
constexpr int lumaThousandthsOfGreen = 587; ///< the weight of green, times 1000
constexpr int lumaThousandthsOfBlue = 114; ///< the weight of blue, times 1000

constexpr double lumaOfRed = lumaThousandthsOfRed / 1000.0; ///< the weight of red in luma
constexpr double lumaOfGreen = lumaThousandthsOfGreen / 1000.0; ///< the weight of green in luma
constexpr double lumaOfBlue = lumaThousandthsOfBlue / 1000.0; ///< the weight of blue in luma

constexpr int redDifferenceThousandths = 713; ///< redDifferenceScale times 1000
constexpr int blueDifferenceThousandths = 564; ///< blueDifferenceScale times 1000

/// Stretches the difference of red and luma to a range of 255.
constexpr double redDifferenceScale = redDifferenceThousandths / 1000.0;
/// Stretches the difference of blue and luma to a range of 255.
constexpr double blueDifferenceScale = blueDifferenceThousandths / 1000.0;

/// The chroma of greys, in the middle of 0 to 255.
constexpr int chromaOfGrey = 128;

} // namespace vx::kernels
