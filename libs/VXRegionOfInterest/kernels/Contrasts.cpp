#include "ExactArithmetic.h"

#include "Contrasts.h"

#include "LumaChroma.h"
#include "PixelWords.h"
#include "SurroundSpan.h"

#include <algorithm>
#include <utility>

namespace {

using namespace vx::kernels;

std::array<double, 3> channelsOf(QRgb pixel)
{
    const LumaChroma colour = lumaChromaOf(pixel);
    return { colour.luma, colour.redDifference, colour.blueDifference };
}

} // namespace

vx::kernels::IntegralRow::IntegralRow(const QImage& image)
    : words(image)
{
    sums.fill(std::vector<double>(static_cast<std::size_t>(image.width()) + 1, 0.0));
}

void vx::kernels::IntegralRow::moveTo(int y)
{
    while (current < y) {
        ++current;
        const QRgb* const pixels = wordRow(words, current);
        std::array<double, 3> rowSums {};
        for (int x = 0; x < words.width(); ++x) {
            const std::array<double, 3> colour = channelsOf(pixels[x]);
            for (std::size_t channel = 0; channel < colour.size(); ++channel) {
                rowSums[channel] += colour[channel];
                sums[channel][static_cast<std::size_t>(x) + 1] += rowSums[channel];
            }
        }
    }
}

double vx::kernels::IntegralRow::sum(std::size_t channel, int x) const
{
    return sums[channel][static_cast<std::size_t>(x + 1)];
}

vx::kernels::Contrasts::Contrasts(const QImage& image, const RowLoops& rowLoops)
    : words(image)
    , loops(rowLoops)
    , width(image.width())
    , height(image.height())
    , values(uninitializedArray<double>(
          static_cast<std::size_t>(width) * static_cast<std::size_t>(height)))
    , above(image)
    , bottom(image)
    , smoothedRows { smoothedAlong(-1), smoothedAlong(-1), smoothedAlong(0) }
{
    for (int y = 0; y < height; ++y)
        compute(y);
}

const double* vx::kernels::Contrasts::row(int y) const
{
    return values.get() + static_cast<std::ptrdiff_t>(y) * width;
}

void vx::kernels::Contrasts::writeLevels(BytePlane& levels) const
{
    Range extremes { 1073741824, 0 };
    for (int y = 0; y < height; ++y)
        loops.widenRange(row(y), width, extremes);
    const int range = static_cast<int>(extremes.greatest - extremes.least);
    if (range == 0) {
        std::fill_n(levels.values.get(), byteCount(words.size()), quint8 { 0 });
        return;
    }
    const auto nothing = filledArray(static_cast<std::size_t>(width), 0.0);
    for (int y = 0; y < height; ++y)
        loops.writeLevels(
            row(y), width, { nothing.get(), 0, 0, 0 }, extremes.least, range, levels.row(y));
}

// Rows outside the image are zeros, which add nothing to what is smoothed down the columns.
vx::kernels::ChannelRow vx::kernels::Contrasts::smoothedAlong(int y) const
{
    ChannelRow smoothed;
    smoothed.fill(std::vector<double>(static_cast<std::size_t>(width), 0.0));
    if (y < 0 || y >= height)
        return smoothed;
    const QRgb* const pixels = wordRow(words, y);
    for (int x = 0; x < width; ++x) {
        const std::array<double, 3> before
            = x > 0 ? channelsOf(pixels[x - 1]) : std::array<double, 3> {};
        const std::array<double, 3> here = channelsOf(pixels[x]);
        const std::array<double, 3> after
            = x + 1 < width ? channelsOf(pixels[x + 1]) : std::array<double, 3> {};
        for (std::size_t channel = 0; channel < smoothed.size(); ++channel)
            smoothed[channel][static_cast<std::size_t>(x)]
                = (before[channel] + 2 * here[channel] + after[channel])
                / smoothingWeights(x, width);
    }
    return smoothed;
}

void vx::kernels::Contrasts::compute(int y)
{
    const SurroundSpan rows = surroundSpan(y, height);
    above.moveTo(rows.first - 1);
    bottom.moveTo(rows.last);
    smoothedRows = { std::move(smoothedRows[1]), std::move(smoothedRows[2]), smoothedAlong(y + 1) };
    double* const contrasts = values.get() + static_cast<std::ptrdiff_t>(y) * width;
    for (int x = 0; x < width; ++x)
        contrasts[x]
            = squaredDistance(0, x, y) + squaredDistance(1, x, y) + squaredDistance(2, x, y);
}

// The zeros outside the image add and subtract nothing, so that all four corners may be taken.
double vx::kernels::Contrasts::squaredDistance(std::size_t channel, int x, int y) const
{
    const SurroundSpan columns = surroundSpan(x, width);
    const SurroundSpan rows = surroundSpan(y, height);
    const double sum = bottom.sum(channel, columns.last) + above.sum(channel, columns.first - 1)
        - above.sum(channel, columns.last) - bottom.sum(channel, columns.first - 1);
    const auto i = static_cast<std::size_t>(x);
    const double smoothed = (smoothedRows[0][channel][i] + 2 * smoothedRows[1][channel][i]
                                + smoothedRows[2][channel][i])
        / smoothingWeights(y, height);
    const double area = static_cast<double>(columns.count()) * rows.count();
    const double distance = sum / area - smoothed;
    return distance * distance;
}
