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
// so every second pixel has a table of its own.
void countFewBins(const QImage& words, const Bins& bins, const RowLoops& loops)
{
    const auto binCount = static_cast<std::size_t>(bins.rows * bins.columns);
    const auto width = static_cast<std::size_t>(words.width());
    std::vector<qint32> counts(2 * binCount);
    std::vector<quint32> indices(width);
    qint32* const evenCounts = counts.data();
    qint32* const oddCounts = evenCounts + binCount;
    for (int y = 0; y < words.height(); ++y) {
        loops.findBins(wordRow(words, y), words.width(), bins.rows, bins.columns, indices.data());
        for (std::size_t x = 0; x + 1 < width; x += 2) {
            ++evenCounts[indices[x]];
            ++oddCounts[indices[x + 1]];
        }
        if (width % 2 == 1)
            ++evenCounts[indices[width - 1]];
    }
    for (std::size_t i = 0; i < binCount; ++i)
        bins.values[i] = evenCounts[i] + oddCounts[i];
}

// Most rows of a table are zeros: for a picture's block, all but a few.
std::vector<quint8> zeroRowsOf(const Bins& bins, const RowLoops& loops)
{
    std::vector<quint8> isZero(static_cast<std::size_t>(bins.rows));
    loops.findZeroRows(bins.values, bins.rows, bins.columns, isZero.data());
    return isZero;
}

} // namespace

void vx::kernels::countChroma(const QImage& words, const Bins& bins, const RowLoops& loops)
{
    if (static_cast<qint64>(bins.rows) * bins.columns <= fewBins) {
        countFewBins(words, bins, loops);
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
    const std::vector<quint8> isZero = zeroRowsOf(bins, loops);
    Range values { 1000.0, 0.0 };
    for (int i = 0; i < bins.rows; ++i) {
        const bool rowIsZero = isZero[static_cast<std::size_t>(i)] != 0;
        loops.widenRange(bins.row(i), rowIsZero ? 1 : bins.columns, values);
    }
    const double least = values.least;
    const double range = values.greatest - least;
    for (int i = 0; i < bins.rows; ++i) {
        const bool rowIsZero = isZero[static_cast<std::size_t>(i)] != 0;
        const bool staysZero = rowIsZero && least == 0.0 && range > 0.0;
        if (!staysZero)
            std::transform(bins.row(i), bins.row(i + 1), bins.row(i),
                [=](double value) { return (value - least) / range; });
    }
}

double vx::kernels::chiSquareDistance(const Bins& own, const Bins& other, const RowLoops& loops)
{
    const std::vector<quint8> isZero = zeroRowsOf(own, loops);
    const int sharedRows = std::min(own.rows, other.rows);
    const int sharedColumns = std::min(own.columns, other.columns);
    double sum = 0.0;
    for (int i = 0; i < own.rows; ++i) {
        if (isZero[static_cast<std::size_t>(i)] != 0)
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
