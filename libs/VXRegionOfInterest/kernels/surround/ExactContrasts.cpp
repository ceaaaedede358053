#include "../image/ExactArithmetic.h"

#include "ExactContrasts.h"

#include "../image/GreyMap.h"
#include "../image/LumaChroma.h"
#include "../image/PixelWords.h"
#include "SurroundLoops.h"

#include <utility>

namespace {

using namespace vx::kernels;

Colour colourOf(QRgb pixel)
{
    const LumaChroma colour = lumaChromaOf(pixel);
    return { colour.luma, colour.redDifference, colour.blueDifference };
}

// Multiplying by 0.25 is exact, as dividing by 4 is, and faster.
double mean(double sum, double weights) { return weights == 4.0 ? sum * 0.25 : sum / weights; }

// The mean with weights 1, 2, 1. A neighbour outside the image is zero and adds nothing.
Colour smoothed(const Colour& before, const Colour& here, const Colour& after, double weights)
{
    Colour smoothed {};
    for (std::size_t i = 0; i < smoothed.size(); ++i)
        smoothed[i] = mean(before[i] + 2 * here[i] + after[i], weights);
    return smoothed;
}

} // namespace

vx::kernels::IntegralRow::IntegralRow(const QImage& image)
    : words(image)
    , sums(static_cast<std::size_t>(image.width()) + 1)
{
}

void vx::kernels::IntegralRow::moveTo(int y)
{
    while (current < y) {
        ++current;
        const QRgb* const pixels = wordRow(words, current);
        const auto width = static_cast<std::size_t>(words.width());
        Colour rowSums {};
        for (std::size_t x = 0; x < width; ++x) {
            const Colour colour = colourOf(pixels[x]);
            for (std::size_t i = 0; i < colour.size(); ++i) {
                rowSums[i] += colour[i];
                sums[x + 1][i] += rowSums[i];
            }
        }
    }
}

vx::kernels::ExactContrasts::ExactContrasts(const QImage& image, const RowLoops& rowLoops)
    : words(image)
    , loops(rowLoops)
    , width(image.width())
    , height(image.height())
    , values(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
    , above(image)
    , bottom(image)
    , smoothedRows { smoothedAlong(-1), smoothedAlong(-1), smoothedAlong(0) }
{
    for (int y = 0; y < height; ++y)
        compute(y);
}

const double* vx::kernels::ExactContrasts::row(int y) const
{
    return values.get() + static_cast<std::ptrdiff_t>(y) * width;
}

void vx::kernels::ExactContrasts::stretch(QImage& greyMap) const
{
    Range extremes = rangeOfNoContrasts;
    for (int y = 0; y < height; ++y)
        loops.numbers.widenRange(row(y), width, extremes);
    const int range = static_cast<int>(extremes.greatest - extremes.least);
    if (range == 0) {
        greyMap.fill(0);
        return;
    }
    const AlignedArray<double> noError(static_cast<std::size_t>(width), 0.0);
    for (int y = 0; y < height; ++y)
        loops.surround.stretchContrasts(row(y), width, { noError.get(), 0, 0, 0 }, extremes.least,
            range, writableGreyRow(greyMap, y));
}

// Rows outside the image are zeros.
std::vector<vx::kernels::Colour> vx::kernels::ExactContrasts::smoothedAlong(int y) const
{
    std::vector<Colour> row(static_cast<std::size_t>(width));
    if (y < 0 || y >= height)
        return row;
    const QRgb* const pixels = wordRow(words, y);
    Colour before {};
    Colour here = colourOf(pixels[0]);
    for (int x = 0; x < width; ++x) {
        const Colour after = x + 1 < width ? colourOf(pixels[x + 1]) : Colour {};
        row[static_cast<std::size_t>(x)]
            = smoothed(before, here, after, smoothingWeights(x, width));
        before = here;
        here = after;
    }
    return row;
}

void vx::kernels::ExactContrasts::compute(int y)
{
    const SurroundSpan rows = surroundSpan(y, height);
    above.moveTo(rows.first - 1);
    bottom.moveTo(rows.last);
    smoothedRows = { std::move(smoothedRows[1]), std::move(smoothedRows[2]), smoothedAlong(y + 1) };
    const double weights = smoothingWeights(y, height);
    double* const contrasts = values.get() + static_cast<std::ptrdiff_t>(y) * width;
    for (int x = 0; x < width; ++x) {
        const SurroundSpan columns = surroundSpan(x, width);
        const double area = static_cast<double>(columns.count()) * rows.count();
        const Colour sum = surroundSum(columns);
        const Colour pixel = smoothedDown(x, weights);
        Colour distance {};
        for (std::size_t i = 0; i < distance.size(); ++i)
            distance[i] = sum[i] / area - pixel[i];
        contrasts[x]
            = distance[0] * distance[0] + distance[1] * distance[1] + distance[2] * distance[2];
    }
}

// From the four corners of the integral image. Those outside the image are zero and change nothing.
vx::kernels::Colour vx::kernels::ExactContrasts::surroundSum(const SurroundSpan& columns) const
{
    Colour sum {};
    for (std::size_t i = 0; i < sum.size(); ++i)
        sum[i] = bottom.upTo(columns.last)[i] + above.upTo(columns.first - 1)[i]
            - above.upTo(columns.last)[i] - bottom.upTo(columns.first - 1)[i];
    return sum;
}

vx::kernels::Colour vx::kernels::ExactContrasts::smoothedDown(int x, double weights) const
{
    const auto i = static_cast<std::size_t>(x);
    return smoothed(smoothedRows[0][i], smoothedRows[1][i], smoothedRows[2][i], weights);
}
