#include "Blend.h"

#include "PixelWords.h"

#include <algorithm>
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

// add(values, count, weight, sums) and divide(sums, count, divisor, pixels) are loops for sums of such
// numbers.
template <typename Sum, typename Add, typename Divide>
void blendRows(const std::vector<BytePlane>& maps, const QList<int>& weights, QImage& target,
    const Add& add, const Divide& divide)
{
    const qint32 divisor = divisorOf(weights);
    std::vector<Sum> sums(static_cast<std::size_t>(target.width()));
    for (int y = 0; y < target.height(); ++y) {
        std::fill(sums.begin(), sums.end(), Sum { 0 });
        int index = 0;
        for (const BytePlane& map : maps) {
            const auto weight = static_cast<Sum>(weights.value(index++));
            if (y < map.height)
                add(map.row(y), std::min(map.width, target.width()), weight, sums.data());
        }
        divide(sums.data(), target.width(), divisor, writableWordRow(target, y));
    }
}

} // namespace

void vx::kernels::blend(const std::vector<BytePlane>& maps, const QList<int>& weights,
    QImage& target, const RowLoops& loops)
{
    if (divisorOf(weights) > 0 && areSumsSmall(weights))
        blendRows<qint16>(maps, weights, target, loops.addSmallWeighted, loops.divideSmallSums);
    else
        blendRows<quint32>(maps, weights, target, loops.addWeighted, loops.divideSums);
}
