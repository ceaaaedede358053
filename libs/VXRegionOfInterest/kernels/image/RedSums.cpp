#include "RedSums.h"

#include "PixelLoops.h"
#include "PixelWords.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace {

// The sum of a column of so many rows fits into 32 bits.
constexpr int rowsAtOnce = 1 << 24;

} // namespace

QList<long long> vx::kernels::columnRedSums(const QImage& words, const RowLoops& loops)
{
    std::vector<long long> sums(static_cast<std::size_t>(words.width()));
    std::vector<quint32> partialSums(sums.size());
    int end = 0;
    while (end < words.height()) {
        const int first = end;
        end = words.height() - first < rowsAtOnce ? words.height() : first + rowsAtOnce;
        std::fill(partialSums.begin(), partialSums.end(), 0U);
        for (int y = first; y < end; ++y)
            loops.pixels.addReds(wordRow(words, y), words.width(), partialSums.data());
        std::transform(sums.begin(), sums.end(), partialSums.begin(), sums.begin(), std::plus<>());
    }
    return QList<long long>(sums.cbegin(), sums.cend());
}

QList<long long> vx::kernels::rowRedSums(const QImage& words, const RowLoops& loops)
{
    QList<long long> sums;
    sums.reserve(words.height());
    for (int y = 0; y < words.height(); ++y)
        sums.append(static_cast<long long>(
            loops.pixels.measureReds(wordRow(words, y), words.width(), 0).sum));
    return sums;
}
