#include "Blend.h"

#include "PixelWords.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

using namespace vx::kernels;

qint32 divisorOf(const QList<int>& weights)
{
    quint32 sum = 0;
    for (const int weight : weights)
        sum += static_cast<quint32>(std::max(weight, 0));
    return sum == 0 ? 1 : static_cast<qint32>(sum);
}

// Whether no weighted sum of bytes exceeds what 16 bits hold.
bool areSumsSmall(const QList<int>& weights)
{
    qint64 most = 0;
    for (const int weight : weights)
        most += 255 * std::abs(static_cast<qint64>(weight));
    return most <= mostOfSmallSums;
}

bool haveAllOf(const QSize& size, const std::vector<BytePlane>& maps)
{
    return std::all_of(maps.begin(), maps.end(), [&](const BytePlane& map) {
        return map.width >= size.width() && map.height >= size.height();
    });
}

// In place of maps that there are too few of, the first one counts nothing.
void blendFew(const std::vector<BytePlane>& maps, const QList<int>& weights, qint32 divisor,
    QImage& target, const RowLoops& loops)
{
    for (int y = 0; y < target.height(); ++y) {
        std::array<WeightedBytes, mapsAtOnce> rows {};
        rows.fill({ maps.front().row(y), 0 });
        for (std::size_t i = 0; i < maps.size(); ++i)
            rows[i] = { maps[i].row(y), static_cast<qint16>(weights.value(static_cast<int>(i))) };
        loops.blendFew(rows.data(), target.width(), divisor, writableWordRow(target, y));
    }
}

void blendAny(const std::vector<BytePlane>& maps, const QList<int>& weights, qint32 divisor,
    QImage& target, const RowLoops& loops)
{
    std::vector<quint32> sums(static_cast<std::size_t>(target.width()));
    for (int y = 0; y < target.height(); ++y) {
        std::fill(sums.begin(), sums.end(), 0);
        int index = 0;
        for (const BytePlane& map : maps) {
            const auto weight = static_cast<quint32>(weights.value(index++));
            if (y < map.height)
                loops.addWeighted(
                    map.row(y), std::min(map.width, target.width()), weight, sums.data());
        }
        loops.divideSums(sums.data(), target.width(), divisor, writableWordRow(target, y));
    }
}

} // namespace

void vx::kernels::blend(const std::vector<BytePlane>& maps, const QList<int>& weights,
    QImage& target, const RowLoops& loops)
{
    const qint32 divisor = divisorOf(weights);
    const bool areSmall = divisor > 0 && areSumsSmall(weights) && !maps.empty()
        && maps.size() <= mapsAtOnce && haveAllOf(target.size(), maps);
    if (areSmall)
        blendFew(maps, weights, divisor, target, loops);
    else
        blendAny(maps, weights, divisor, target, loops);
}
