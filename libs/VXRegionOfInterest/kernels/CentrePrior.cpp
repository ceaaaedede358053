#include "image/ExactArithmetic.h"

#include "CentrePrior.h"

#include "image/GreyMap.h"
#include "image/NumberLoops.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr double variance = 16900.0; // square pixels: a standard deviation of 130 pixels
constexpr double exponentFactor = -0.5;
constexpr double peak = 255.0;

// The Gaussian along one axis: exp(-d² / (2 σ²)) for each position, d its distance to the middle.
std::vector<double> gaussianAlong(int length)
{
    const double centre = length * 0.5;
    std::vector<double> gaussian;
    gaussian.reserve(static_cast<std::size_t>(length));
    for (int position = 0; position < length; ++position) {
        const double distance = position - centre;
        gaussian.push_back(std::exp(distance * distance * exponentFactor / variance));
    }
    return gaussian;
}

} // namespace

// The product of two exponentials replaces the exponential of the sum. Both come within 1e-12 of the exact value, and
// truncate alike because no exact value is that close to an integer: 4 d² is an integer n, so the values are
// 255 · exp(-n / 135200), and for n > 0 none of them lies within 1e-6 of an integer above 0 (a test tries them all). At
// n = 0 both are exactly 255. Rows below the middle are copies of those above it.
void vx::kernels::centrePrior(QImage& greyMap, const RowLoops& loops)
{
    const std::vector<double> columnGaussian = gaussianAlong(greyMap.width());
    const std::vector<double> rowGaussian = gaussianAlong(greyMap.height());
    const int height = greyMap.height();
    for (int y = 0; y <= height / 2 && y < height; ++y) {
        const double rowPeak = rowGaussian[static_cast<std::size_t>(y)] * peak;
        loops.numbers.writeProducts(
            columnGaussian.data(), greyMap.width(), rowPeak, writableGreyRow(greyMap, y));
    }
    for (int y = height / 2 + 1; y < height; ++y)
        std::copy_n(greyRow(greyMap, height - y), greyMap.width(), writableGreyRow(greyMap, y));
}
