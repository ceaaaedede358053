#include "ContrastTolerance.h"

#include <cmath>

double vx::kernels::columnTolerance(const SurroundSpan& columns)
{
    return static_cast<double>(columns.last + 1 + columns.first) / columns.count();
}

double vx::kernels::rowTolerance(int y, int width, int height)
{
    const SurroundSpan rows = surroundSpan(y, height);
    return width + (y + 1.0) + 4.0 * (rows.last + 1) / rows.count();
}

double vx::kernels::lengthTolerance(double product)
{
    constexpr double rounding = 257 * 0x1p-53;
    // Luma, chroma, their smoothing, divisions: a few roundings of numbers below 256 on either side.
    constexpr double fewRoundings = 1e-11;
    return std::sqrt(3.0) * (product * rounding + fewRoundings);
}
