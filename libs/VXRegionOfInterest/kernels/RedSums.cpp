#include "RedSums.h"

#include "PixelWords.h"

#include <vector>

QList<long long> vx::kernels::columnRedSums(const QImage& words)
{
    std::vector<long long> sums(static_cast<std::size_t>(words.width()));
    for (int y = 0; y < words.height(); ++y) {
        const QRgb* const row = wordRow(words, y);
        for (std::size_t x = 0; x < sums.size(); ++x)
            sums[x] += qRed(row[x]);
    }
    return QList<long long>(sums.cbegin(), sums.cend());
}

QList<long long> vx::kernels::rowRedSums(const QImage& words)
{
    QList<long long> sums;
    sums.reserve(words.height());
    for (int y = 0; y < words.height(); ++y) {
        const QRgb* const row = wordRow(words, y);
        long long sum = 0;
        for (int x = 0; x < words.width(); ++x)
            sum += qRed(row[x]);
        sums.append(sum);
    }
    return sums;
}
