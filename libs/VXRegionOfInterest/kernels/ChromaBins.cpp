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

// As many bins as tables of counts can have without leaving the cache next to the processor.
constexpr int fewBins = 2048;

// Neighbours fall into the same bin often, and a count that has just been stored is slow to come back,
// so each of four pixels has a table of its own.
void countFewBins(const QImage& words, const Bins& bins, const RowLoops& loops)
{
    const auto binCount
        = static_cast<std::size_t>(bins.rows) * static_cast<std::size_t>(bins.columns);
    const auto width = static_cast<std::size_t>(words.width());
    std::vector<qint32> counts(4 * binCount);
    const std::array<qint32*, 4> tables { counts.data(), counts.data() + binCount,
        counts.data() + 2 * binCount, counts.data() + 3 * binCount };
    std::vector<quint32> indices(width);
    for (int y = 0; y < words.height(); ++y) {
        loops.findBins(wordRow(words, y), words.width(), bins.rows, bins.columns, indices.data());
        std::size_t x = 0;
        for (; x + 4 <= width; x += 4) {
            ++tables[0][indices[x]];
            ++tables[1][indices[x + 1]];
            ++tables[2][indices[x + 2]];
            ++tables[3][indices[x + 3]];
        }
        for (; x < width; ++x)
            ++tables[0][indices[x]];
    }
    loops.sumTables(tables.data(), bins.rows, bins.columns, bins.values, bins.emptyRows);
}

void countManyBins(const QImage& words, const Bins& bins)
{
    const std::array<int, 256> rowOfByte = binOfByte(bins.rows);
    const std::array<int, 256> columnOfByte = binOfByte(bins.columns);
    std::fill_n(bins.emptyRows, bins.rows, quint8 { 1 });
    for (int y = 0; y < words.height(); ++y) {
        const QRgb* const pixels = wordRow(words, y);
        for (int x = 0; x < words.width(); ++x) {
            const int row = rowOfByte[pixels[x] >> 8 & 0xFFU];
            const int column = columnOfByte[pixels[x] & 0xFFU];
            if (row < 0 || column < 0)
                continue;
            bins.row(row)[column] += 1.0;
            bins.emptyRows[row] = 0;
        }
    }
}

} // namespace

void vx::kernels::countChroma(const QImage& words, const Bins& bins, const RowLoops& loops)
{
    if (static_cast<qint64>(bins.rows) * bins.columns <= fewBins)
        countFewBins(words, bins, loops);
    else
        countManyBins(words, bins);
}

void vx::kernels::normalizeBins(const Bins& bins, const RowLoops& loops)
{
    Range values { 1000.0, 0.0 };
    for (int i = 0; i < bins.rows; ++i) {
        if (bins.emptyRows[i] == 0)
            loops.widenRange(bins.row(i), bins.columns, values);
        else
            values.least = std::min(values.least, 0.0);
    }
    const double least = values.least;
    const double range = values.greatest - least;
    for (int i = 0; i < bins.rows; ++i) {
        const bool staysEmpty = bins.emptyRows[i] != 0 && least == 0.0 && range > 0.0;
        if (staysEmpty)
            continue;
        std::transform(bins.row(i), bins.row(i + 1), bins.row(i),
            [=](double value) { return (value - least) / range; });
        bins.emptyRows[i] = 0;
    }
}

double vx::kernels::chiSquareDistance(const Bins& own, const Bins& other)
{
    const int sharedRows = std::min(own.rows, other.rows);
    const int sharedColumns = std::min(own.columns, other.columns);
    double sum = 0.0;
    for (int i = 0; i < own.rows; ++i) {
        if (own.emptyRows[i] != 0)
            continue;
        const double* const ownRow = own.row(i);
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
