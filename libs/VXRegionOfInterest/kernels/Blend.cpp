#include "Blend.h"

#include "PixelWords.h"

#include <algorithm>

namespace {

qint32 divisorOf(const QList<int>& weights)
{
    quint32 sum = 0;
    for (const int weight : weights)
        sum += static_cast<quint32>(std::max(weight, 0));
    return sum == 0 ? 1 : static_cast<qint32>(sum);
}

} // namespace

void vx::kernels::blend(
    const QList<QImage>& maps, const QList<int>& weights, QImage& target, const RowLoops& loops)
{
    beginBlend(maps.value(0), weights.value(0), target, loops);
    for (int i = 1; i < maps.size(); ++i)
        addToBlend(maps.at(i), weights.value(i), target, loops);
    finishBlend(weights, target, loops);
}

void vx::kernels::beginBlend(
    const QImage& firstMap, int weight, QImage& sums, const RowLoops& loops)
{
    for (int y = 0; y < sums.height(); ++y) {
        QRgb* const row = writableWordRow(sums, y);
        const int inBoth = y < firstMap.height() ? std::min(firstMap.width(), sums.width()) : 0;
        if (inBoth > 0)
            loops.weighReds(wordRow(firstMap, y), inBoth, static_cast<quint32>(weight), row);
        std::fill(row + inBoth, row + sums.width(), 0U);
    }
}

void vx::kernels::addToBlend(const QImage& map, int weight, QImage& sums, const RowLoops& loops)
{
    const int height = std::min(map.height(), sums.height());
    const int width = std::min(map.width(), sums.width());
    for (int y = 0; y < height; ++y) {
        loops.addWeightedReds(
            wordRow(map, y), width, static_cast<quint32>(weight), writableWordRow(sums, y));
    }
}

void vx::kernels::finishBlend(const QList<int>& weights, QImage& sums, const RowLoops& loops)
{
    const qint32 divisor = divisorOf(weights);
    for (int y = 0; y < sums.height(); ++y)
        loops.divideSums(writableWordRow(sums, y), sums.width(), divisor);
}
