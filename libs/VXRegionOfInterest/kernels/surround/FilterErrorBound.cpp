#include "FilterErrorBound.h"

#include <cmath>

double vx::kernels::columnErrorFactor(const SurroundSpan& columns)
{
    return static_cast<double>(columns.last + 1 + columns.first) / columns.count();
}

double vx::kernels::rowErrorFactor(int y, int width, int height)
{
    constexpr double cornerSteps = 4.0;
    const SurroundSpan rows = surroundSpan(y, height);
    return width + (y + 1.0) + cornerSteps * (rows.last + 1) / rows.count();
}

double vx::kernels::lengthError(double product)
{
    constexpr double unit = 257 * 0x1p-53;
    // Luma, chroma, their smoothing, divisions: a few roundings of numbers below 256 on either side.
    constexpr double fewRoundings = 1e-11;
    constexpr double channels = 3.0;
    return std::sqrt(channels) * (product * unit + fewRoundings);
}
