#include "../image/RedSums.h"

#include "../image/PixelWords.h"

QList<long long> vx::kernels::reference::columnRedSums(const QImage& words)
{
    QList<long long> sums;
    for (int x = 0; x < words.width(); ++x) {
        sums.append(0);
        for (int y = 0; y < words.height(); ++y)
            sums.last() += qRed(wordRow(words, y)[x]);
    }
    return sums;
}

QList<long long> vx::kernels::reference::rowRedSums(const QImage& words)
{
    QList<long long> sums;
    for (int y = 0; y < words.height(); ++y) {
        sums.append(0);
        for (int x = 0; x < words.width(); ++x)
            sums.last() += qRed(wordRow(words, y)[x]);
    }
    return sums;
}
