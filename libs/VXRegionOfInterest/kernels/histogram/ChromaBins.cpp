#include "../image/ExactArithmetic.h"

#include "ChromaBins.h"

#include "../image/NumberLoops.h"
#include "../image/PixelWords.h"
#include "../image/Wrapping.h"
#include "HistogramLoops.h"

#include <algorithm>
#include <array>
#include <limits>
#include <vector>

namespace {

using namespace vx::kernels;

// The bin of each byte value, as findBins() in ChromaBins.inl computes it for few bins. A product that wraps may give a
// negative bin, but none beyond the last: it wraps for more than 2²³ bins, and no int divided by 256 is above 2²³.
std::array<int, 256> binOfByte(int binCount)
{
    std::array<int, 256> bins {};
    for (int byte = 0; byte < 256; ++byte)
        bins[static_cast<std::size_t>(byte)] = wrappingProduct(byte, binCount) / 256;
    return bins;
}

// Tables of counts for so many bins fit into the first-level cache.
constexpr int fewBins = 2048;

void countFewBins(const QImage& words, const Bins& bins, const RowLoops& loops)
{
    BinCounts counts(bins.rows, bins.columns);
    std::vector<quint32> indices(static_cast<std::size_t>(words.width()));
    for (int y = 0; y < words.height(); ++y) {
        loops.histogram.findBins(
            wordRow(words, y), words.width(), bins.rows, bins.columns, indices.data());
        counts.add(indices.data(), words.width());
    }
    counts.moveInto(bins, loops);
}

void countManyBins(const QImage& words, const Bins& bins)
{
    const std::array<int, 256> rowOfByte = binOfByte(bins.rows);
    const std::array<int, 256> columnOfByte = binOfByte(bins.columns);
    std::fill(bins.row(0), bins.row(bins.rows), 0.0);
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

// Adds the terms of a row to several sums at once: the additions to one sum are in order, and none waits for those to
// another.
template <std::size_t count>
void addDistances(const Bins& own, int row, const std::array<Bins, count>& others,
    std::array<double, count>& sums)
{
    const double* const ownRow = own.row(row);
    std::array<const double*, count> rows {};
    std::array<int, count> columns {};
    for (std::size_t k = 0; k < count; ++k) {
        const bool hasRow = row < others[k].rows;
        rows[k] = hasRow ? others[k].row(row) : nullptr;
        columns[k] = hasRow ? others[k].columns : 0;
    }
    for (int j = 0; j < own.columns; ++j) {
        const double u = ownRow[j];
        if (!(u < 0.0 || u > 0.0))
            continue;
        for (std::size_t k = 0; k < count; ++k) {
            const double v = j < columns[k] ? rows[k][j] : 0.0;
            sums[k] += (u - v) * (u - v) / u;
        }
    }
}

// Sums never decrease, so a sum above `enough` stays above it.
template <std::size_t count>
std::array<double, count> distancesTo(
    const Bins& own, const std::array<Bins, count>& others, double enough)
{
    const auto isEnough = [=](double sum) { return sum > enough; };
    std::array<double, count> sums {};
    for (int row = 0; row < own.rows; ++row) {
        if (own.emptyRows[row] != 0)
            continue;
        addDistances(own, row, others, sums);
        if (std::all_of(sums.begin(), sums.end(), isEnough))
            break;
    }
    return sums;
}

std::size_t binCount(int rows, int columns)
{
    return static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns);
}

} // namespace

vx::kernels::BinTables::BinTables(int count, int rowCount, int columnCount)
    : rows(rowCount)
    , columns(columnCount)
    , values(static_cast<std::size_t>(count) * binCount(rows, columns))
    , emptyRows(binCount(count, rows))
{
}

vx::kernels::Bins vx::kernels::BinTables::at(int index) const
{
    const auto before = static_cast<std::size_t>(index);
    return { values.get() + before * binCount(rows, columns),
        emptyRows.get() + before * static_cast<std::size_t>(rows), rows, columns };
}

// The 16 numbers between tables keep the counts of one bin from lying a multiple of 4 KiB apart, which processors
// mistake for the same address.
vx::kernels::BinCounts::BinCounts(int rows, int columns)
    : stride(binCount(rows, columns) + 16)
    , counts(tableCount * stride, 0)
    , tables { counts.get(), counts.get() + stride, counts.get() + 2 * stride,
        counts.get() + 3 * stride }
{
}

void vx::kernels::BinCounts::add(const quint32* indices, int count)
{
    int i = 0;
    for (; i + 4 <= count; i += 4) {
        ++tables[0][indices[i]];
        ++tables[1][indices[i + 1]];
        ++tables[2][indices[i + 2]];
        ++tables[3][indices[i + 3]];
    }
    for (; i < count; ++i)
        ++tables[0][indices[i]];
}

void vx::kernels::BinCounts::moveInto(const Bins& bins, const RowLoops& loops)
{
    loops.histogram.sumTables(tables.data(), bins.rows, bins.columns, bins.values, bins.emptyRows);
    std::fill_n(counts.get(), tableCount * stride, 0);
}

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
            loops.numbers.widenRange(bins.row(i), bins.columns, values);
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
    constexpr double infinity = std::numeric_limits<double>::infinity();
    return distancesTo(own, std::array { other }, infinity).front();
}

std::array<double, vx::kernels::neighbourCount> vx::kernels::chiSquareDistances(
    const Bins& own, const std::array<Bins, neighbourCount>& others, double enough)
{
    return distancesTo(own, others, enough);
}
