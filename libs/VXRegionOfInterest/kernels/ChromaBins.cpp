#include "ExactArithmetic.h"

#include "ChromaBins.h"

#include "PixelWords.h"
#include "Wrapping.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {

using namespace vx::kernels;

// The bin of each byte value. A product that wraps may give a negative one, but none beyond the
// last: it wraps for more than 2²³ bins, and no int divided by 256 is above 2²³.
std::array<int, 256> binOfByte(int binCount)
{
    std::array<int, 256> bins {};
    for (int byte = 0; byte < 256; ++byte)
        bins[static_cast<std::size_t>(byte)] = wrappingProduct(byte, binCount) / 256;
    return bins;
}

// As many bins as two tables of counts can have without leaving the cache next to the processor.
constexpr int fewBins = 4096;

// Neighbours fall into the same bin often, and a count that has just been stored is slow to come back,
// so every second pixel has a table of its own.
void countFewBins(const QImage& words, const Bins& bins)
{
    const std::array<int, 256> rowOfByte = binOfByte(bins.rows);
    const std::array<int, 256> columnOfByte = binOfByte(bins.columns);
    const auto binOf = [&](QRgb pixel) {
        return static_cast<std::size_t>(
            rowOfByte[pixel >> 8U & 0xFFU] * bins.columns + columnOfByte[pixel & 0xFFU]);
    };
    const auto binCount = static_cast<std::size_t>(bins.rows * bins.columns);
    std::array<std::vector<quint32>, 2> counts { std::vector<quint32>(binCount),
        std::vector<quint32>(binCount) };
    for (int y = 0; y < words.height(); ++y) {
        const QRgb* const pixels = wordRow(words, y);
        int x = 0;
        for (; x + 1 < words.width(); x += 2) {
            ++counts[0][binOf(pixels[x])];
            ++counts[1][binOf(pixels[x + 1])];
        }
        if (x < words.width())
            ++counts[0][binOf(pixels[x])];
    }
    for (std::size_t i = 0; i < binCount; ++i)
        bins.values[i] = counts[0][i] + counts[1][i];
}

} // namespace

void vx::kernels::countChroma(const QImage& words, const Bins& bins)
{
    if (static_cast<qint64>(bins.rows) * bins.columns <= fewBins) {
        countFewBins(words, bins);
        return;
    }
    const std::array<int, 256> rowOfByte = binOfByte(bins.rows);
    const std::array<int, 256> columnOfByte = binOfByte(bins.columns);
    for (int y = 0; y < words.height(); ++y) {
        const QRgb* const pixels = wordRow(words, y);
        for (int x = 0; x < words.width(); ++x) {
            const int row = rowOfByte[pixels[x] >> 8 & 0xFFU];
            const int column = columnOfByte[pixels[x] & 0xFFU];
            if (row >= 0 && column >= 0)
                bins.row(row)[column] += 1.0;
        }
    }
}

void vx::kernels::normalizeBins(const Bins& bins, const RowLoops& loops)
{
    double* const end = bins.row(bins.rows);
    double least = 1000.0;
    double greatest = 0.0;
    for (const double* value = bins.values; value != end; ++value) {
        greatest = std::max(greatest, *value);
        least = std::min(least, *value);
    }
    const double range = greatest - least;
    for (int i = 0; i < bins.rows; ++i) {
        // Zeros stay zeros, and most bins are.
        if (least == 0.0 && range > 0.0 && loops.areZero(bins.row(i), bins.columns))
            continue;
        std::transform(bins.row(i), bins.row(i + 1), bins.row(i),
            [=](double value) { return (value - least) / range; });
    }
}

double vx::kernels::chiSquareDistance(const Bins& own, const Bins& other, const RowLoops& loops)
{
    const int sharedRows = std::min(own.rows, other.rows);
    const int sharedColumns = std::min(own.columns, other.columns);
    double sum = 0.0;
    for (int i = 0; i < own.rows; ++i) {
        const double* const ownRow = own.row(i);
        if (loops.areZero(ownRow, own.columns))
            continue;
        const double* const otherRow = i < sharedRows ? other.row(i) : nullptr;
        for (int j = 0; j < own.columns; ++j) {
            const double u = ownRow[j];
            const double v = otherRow != nullptr && j < sharedColumns ? otherRow[j] : 0.0;
            if (u < 0.0 || u > 0.0)
                sum += (u - v) * (u - v) / u;
        }
    }
    return sum;
}
