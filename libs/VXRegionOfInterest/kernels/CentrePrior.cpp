#include "image/ExactArithmetic.h"

#include "CentrePrior.h"

#include "image/Levels.h"
#include "image/NumberLoops.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr double variance = 16900.0; // square pixels: a standard deviation of 130 pixels
constexpr double exponentFactor = -0.5;
constexpr double peak = 255.0;

// The bump along one axis: exp(-d² / (2 σ²)) for each position, d its distance to the middle.
std::vector<double> bumpAlong(int length)
{
    const double centre = length * 0.5;
    std::vector<double> bump;
    bump.reserve(static_cast<std::size_t>(length));
    for (int position = 0; position < length; ++position) {
        const double distance = position - centre;
        bump.push_back(std::exp(distance * distance * exponentFactor / variance));
    }
    return bump;
}

} // namespace

// The product of two exponentials stands in for the exponential of the sum. Both come within 1e-12
// of the exact level, and truncate alike because no exact level is that close to an integer: 4 d²
// is an integer n, so the levels are 255 · exp(-n / 135200), and for n > 0 none of them lies within
// 1e-6 of an integer above 0 (a test walks them all). At n = 0 both are exactly 255.
void vx::kernels::centrePrior(QImage& levels, const RowLoops& loops)
{
    const std::vector<double> columnBump = bumpAlong(levels.width());
    const std::vector<double> rowBump = bumpAlong(levels.height());
    const int height = levels.height();
    for (int y = 0; y <= height / 2 && y < height; ++y) {
        const double rowPeak = rowBump[static_cast<std::size_t>(y)] * peak;
        loops.numbers.writeProducts(
            columnBump.data(), levels.width(), rowPeak, writableLevelRow(levels, y));
    }
    for (int y = height / 2 + 1; y < height; ++y)
        std::copy_n(levelRow(levels, height - y), levels.width(), writableLevelRow(levels, y));
}
