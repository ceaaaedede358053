#include "Blend.h"

#include "PixelWords.h"

#include <algorithm>
#include <vector>

namespace {

// 32-bit sums that wrap are kept unsigned and read as signed.
using WrappingSums = std::vector<quint32>;

qint32 divisorOf(const QList<int>& weights)
{
    quint32 sum = 0;
    for (const int weight : weights)
        sum += static_cast<quint32>(std::max(weight, 0));
    return sum == 0 ? 1 : static_cast<qint32>(sum);
}

void addWeightedReds(const QRgb* pixels, int count, quint32 weight, WrappingSums& sums)
{
    quint32* const accumulators = sums.data();
    for (int x = 0; x < count; ++x)
        accumulators[x] += (pixels[x] >> 16 & 0xFFU) * weight;
}

// A 32-bit quotient computed in double truncates like the integer division: unless it is an
// integer, it is at least 1 / divisor away from the next one, that is a 2³¹st of itself, and it is
// rounded by no more than a 2⁵³rd of itself.
void writeQuotients(const WrappingSums& sums, double divisor, QRgb* pixels)
{
    for (std::size_t x = 0; x < sums.size(); ++x) {
        const double quotient = static_cast<qint32>(sums[x]) / divisor;
        pixels[x]
            = vx::kernels::opaqueGrey(static_cast<int>(std::min(std::max(quotient, 0.0), 255.0)));
    }
}

} // namespace

void vx::kernels::blend(const QList<QImage>& maps, const QList<int>& weights, QImage& target)
{
    const qint32 divisor = divisorOf(weights);
    // A divisor of -1 flips the weights' signs instead, which wraps where the quotient would.
    const bool flipsSigns = divisor == -1;
    const double effectiveDivisor = flipsSigns ? 1 : divisor;

    WrappingSums sums(static_cast<std::size_t>(target.width()));
    for (int y = 0; y < target.height(); ++y) {
        std::fill(sums.begin(), sums.end(), 0U);
        for (int i = 0; i < maps.size(); ++i) {
            const QImage& map = maps.at(i);
            const auto weight = static_cast<quint32>(weights.value(i));
            if (y < map.height())
                addWeightedReds(wordRow(map, y), std::min(map.width(), target.width()),
                    flipsSigns ? 0U - weight : weight, sums);
        }
        writeQuotients(sums, effectiveDivisor, writableWordRow(target, y));
    }
}
