#include "ExactArithmetic.h"

#include "Planes.h"

namespace {

// Values to be smoothed lie `step` apart, `count` of them, the first at `first`.
struct Line {
    int first;
    int step;
    int count;
};

double smoothedValue(
    const vx::kernels::Plane& plane, const Line& line, int position, const QList<double>& weights)
{
    const int half = weights.size() / 2;
    double weightedSum = 0;
    double weightSum = 0;
    for (int k = -half; k <= half; ++k) {
        const bool isInside = position + k >= 0 && position + k < line.count;
        if (!isInside || k + half >= weights.size())
            continue;
        const double weight = weights.at(k + half);
        weightSum += weight;
        weightedSum += weight * plane.at(line.first + (position + k) * line.step);
    }
    return weightedSum / weightSum;
}

} // namespace

void vx::kernels::smoothSeparably(
    const Plane& plane, int width, int height, const QList<double>& weights, Plane& smoothed)
{
    Plane smoothedRows = smoothed;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            smoothedRows[y * width + x] = smoothedValue(plane, { y * width, 1, width }, x, weights);
    }
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            smoothed[y * width + x] = smoothedValue(smoothedRows, { x, width, height }, y, weights);
    }
}

void vx::kernels::integrate(const Plane& plane, int width, int height, IntegralImage& integral)
{
    for (int y = 0; y < height; ++y) {
        double rowSum = 0;
        for (int x = 0; x < width; ++x) {
            rowSum += plane.at(y * width + x);
            integral[y][x] = y > 0 ? rowSum + integral.at(y - 1).at(x) : rowSum;
        }
    }
}

double vx::kernels::rectangleSum(const IntegralImage& integral, int x1, int y1, int x2, int y2)
{
    double sum = integral.at(y2).at(x2);
    if (x1 >= 1 && y1 >= 1)
        sum += integral.at(y1 - 1).at(x1 - 1);
    if (y1 >= 1)
        sum -= integral.at(y1 - 1).at(x2);
    if (x1 >= 1)
        sum -= integral.at(y2).at(x1 - 1);
    return sum;
}
