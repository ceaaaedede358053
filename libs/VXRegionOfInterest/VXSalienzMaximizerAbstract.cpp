#include "VXSalienzMaximizerAbstract.h"

#include "kernels/image/Wrapping.h"

// Sums wrap instead of overflowing, whatever values a host hands in.
using vx::kernels::wrappingDifference;
using vx::kernels::wrappingSum;

VXSalienzMaximizerAbstract::~VXSalienzMaximizerAbstract() = default;

QList<long long> VXSalienzMaximizerAbstract::conglumerate(const QList<long long>& values) const
{
    QList<long long> running;
    running.reserve(values.size());
    long long total = 0;
    for (const long long value : values) {
        total = wrappingSum(total, value);
        running.append(total);
    }
    return running;
}

int VXSalienzMaximizerAbstract::bestRange(const QList<long long>& cumulative, int length) const
{
    if (length < 1 || cumulative.size() < length)
        return 0;
    // The last start is left out on purpose, even where it is the only one besides 0.
    const int lastStart = cumulative.size() - length;
    long long bestSum = cumulative.at(length - 1);
    int bestStart = 0;
    for (int start = 1; start < lastStart; ++start) {
        const long long sum
            = wrappingDifference(cumulative.at(start + length - 1), cumulative.at(start - 1));
        if (sum > bestSum) {
            bestSum = sum;
            bestStart = start;
        }
    }
    return bestStart;
}

int VXSalienzMaximizerAbstract::startOfBestRange(const QImage& image, int length) const
{
    return bestRange(conglumerate(sums(image)), length);
}
