#include "VXSalienzAchanta.h"

#include "kernels/image/GreyMap.h"
#include "kernels/image/PixelWords.h"
#include "kernels/image/Planes.h"
#include "kernels/surround/SurroundContrast.h"

#include <algorithm>

namespace {

bool holds(const QList<double>& plane, int width, int height)
{
    return width > 0 && height > 0 && plane.size() / width >= height;
}

bool holds(const QList<QList<double>>& rows, int width, int height)
{
    const auto isLongEnough = [width](const QList<double>& row) { return row.size() >= width; };
    return rows.size() >= height && std::all_of(rows.begin(), rows.begin() + height, isLongEnough);
}

} // namespace

VXSalienzAchanta::VXSalienzAchanta()
    : maxFilter(vx::kernels::contrastDilationSize, vx::kernels::contrastDilationThreshold)
{
}

VXSalienzAchanta::~VXSalienzAchanta() = default;

QImage VXSalienzAchanta::evaluate(const QImage& source)
{
    const QImage words = vx::kernels::toPixelWords(source);
    QImage contrast = vx::kernels::uninitializedGreyMap(words.size());
    vx::kernels::surroundContrast(words, contrast);
    const QImage spread = maxFilter.evaluate(contrast);
    QImage map = createTargetImage(words);
    vx::kernels::writeOpaqueGrey(spread, map);
    return map;
}

QList<double> VXSalienzAchanta::createZeroedList(int count) const
{
    QList<double> zeros;
    for (int i = 0; i < count; ++i)
        zeros.append(0.0);
    return zeros;
}

QList<QList<double>> VXSalienzAchanta::createZeroed2dList(int width, int height) const
{
    QList<QList<double>> rows;
    for (int y = 0; y < height; ++y)
        rows.append(createZeroedList(width));
    return rows;
}

void VXSalienzAchanta::gaussianSmooth(const QList<double>& input, int width, int height,
    const QList<double>& kernel, QList<double>& output)
{
    if (holds(input, width, height) && holds(output, width, height))
        vx::kernels::smoothSeparably(input, width, height, kernel, output);
}

void VXSalienzAchanta::integralImage(
    const QList<double>& plane, int width, int height, QList<QList<double>>& output)
{
    if (holds(plane, width, height) && holds(output, width, height))
        vx::kernels::integrate(plane, width, height, output);
}

double VXSalienzAchanta::integralSum(
    const QList<QList<double>>& integral, int x1, int y1, int x2, int y2)
{
    // The formula reads columns x2 and x1 - 1 of the rows y2 and y1 - 1.
    const auto hasColumns = [&](int y) {
        return y >= 0 && y < integral.size()
            && std::max(x2, std::max(x1, 1) - 1) < integral.at(y).size();
    };
    const bool isInside = x2 >= 0 && hasColumns(y2) && (y1 < 1 || hasColumns(y1 - 1));
    return isInside ? vx::kernels::rectangleSum(integral, x1, y1, x2, y2) : 0;
}
