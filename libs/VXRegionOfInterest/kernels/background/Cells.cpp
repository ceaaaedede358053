#include "../image/ExactArithmetic.h"

#include "Cells.h"

#include "../image/PixelWords.h"
#include "BackgroundLoops.h"

#include <array>

namespace {

using namespace vx::kernels;

// The first pixel of a cell along an axis; for the cell after the last one, the number of pixels.
int firstPixelOf(int cell, int cells, int pixels)
{
    return static_cast<int>(qint64 { cell } * pixels / cells);
}

struct ChannelSums {
    quint64 red = 0;
    quint64 green = 0;
    quint64 blue = 0;
};

// The channel sums of a band of rows: of each column, and of the cells that the columns belong to.
class BandSums {
public:
    BandSums(const QImage& image, int cells, const RowLoops& rowLoops)
        : words(image)
        , loops(rowLoops)
        , redBlue(static_cast<std::size_t>(words.width()))
        , green(redBlue.size())
        , sums(static_cast<std::size_t>(cells))
    {
    }

    // The sums of each cell over the rows from first up to end, which is excluded.
    const std::vector<ChannelSums>& ofRows(int first, int end)
    {
        // The sum of a column of so many rows fits into 16 bits.
        constexpr int rowsAtOnce = 65535 / 255;
        std::fill(sums.begin(), sums.end(), ChannelSums());
        for (int y = first; y < end; y += rowsAtOnce)
            addRows(y, std::min(y + rowsAtOnce, end));
        return sums;
    }

private:
    void addRows(int first, int end)
    {
        std::fill(redBlue.begin(), redBlue.end(), 0);
        std::fill(green.begin(), green.end(), 0);
        for (int y = first; y < end; ++y)
            loops.background.addChannels(
                wordRow(words, y), words.width(), redBlue.data(), green.data());
        const int cells = static_cast<int>(sums.size());
        for (int cell = 0; cell < cells; ++cell)
            addColumns(firstPixelOf(cell, cells, words.width()),
                firstPixelOf(cell + 1, cells, words.width()), sums[static_cast<std::size_t>(cell)]);
    }

    void addColumns(int first, int end, ChannelSums& sum) const
    {
        for (auto x = static_cast<std::size_t>(first); x < static_cast<std::size_t>(end); ++x) {
            sum.red += redBlue[x] >> 16U;
            sum.green += green[x];
            sum.blue += redBlue[x] & 0xFFFFU;
        }
    }

    const QImage& words;
    const RowLoops& loops;
    std::vector<quint32> redBlue;
    std::vector<quint32> green;
    std::vector<ChannelSums> sums;
};

Lab meanOf(const ChannelSums& sums, quint64 pixels)
{
    const auto rounded
        = [pixels](quint64 sum) { return static_cast<int>((2 * sum + pixels) / (2 * pixels)); };
    return labOf(qRgb(rounded(sums.red), rounded(sums.green), rounded(sums.blue)));
}

// A row of grey values, interpolated between two rows of cells; the last one is repeated.
void interpolateRows(
    const Cells<double>& cells, const Interpolation& rows, std::vector<float>& greys)
{
    for (int x = 0; x < cells.columns(); ++x) {
        const double value
            = interpolated(cells.at(x, rows.first), cells.at(x, rows.second), rows.share);
        greys[static_cast<std::size_t>(x)] = static_cast<float>(255 * value);
    }
    greys.back() = greys[static_cast<std::size_t>(cells.columns()) - 1];
}

} // namespace

QSize vx::kernels::gridFor(const QSize& image, int longerSide)
{
    const qint64 longer = std::max(image.width(), image.height());
    const auto cellsAlong = [=](qint64 pixels) {
        const qint64 cells = (2 * pixels * longerSide + longer) / (2 * longer);
        return static_cast<int>(std::clamp<qint64>(cells, 1, pixels));
    };
    return { cellsAlong(image.width()), cellsAlong(image.height()) };
}

Cells<Lab> vx::kernels::cellColours(const QImage& words, const QSize& grid, const RowLoops& loops)
{
    Cells<Lab> colours(grid);
    BandSums band(words, grid.width(), loops);
    for (int y = 0; y < grid.height(); ++y) {
        const int top = firstPixelOf(y, grid.height(), words.height());
        const int bottom = firstPixelOf(y + 1, grid.height(), words.height());
        const std::vector<ChannelSums>& sums = band.ofRows(top, bottom);
        for (int x = 0; x < grid.width(); ++x) {
            const qint64 width = firstPixelOf(x + 1, grid.width(), words.width())
                - firstPixelOf(x, grid.width(), words.width());
            colours.at(x, y) = meanOf(
                sums[static_cast<std::size_t>(x)], static_cast<quint64>(width * (bottom - top)));
        }
    }
    return colours;
}

void vx::kernels::stretch(Cells<double>& cells)
{
    const auto [least, most] = std::minmax_element(cells.begin(), cells.end());
    const double offset = *least;
    const double range = *most - offset;
    for (double& value : cells)
        value = range > 0 ? (value - offset) / range : 0;
}

Cells<double> vx::kernels::enlarged(const Cells<double>& cells, const QSize& size)
{
    Cells<double> larger(size);
    for (int y = 0; y < size.height(); ++y) {
        const Interpolation rows = interpolationAt(y, size.height(), cells.rows());
        for (int x = 0; x < size.width(); ++x) {
            const Interpolation columns = interpolationAt(x, size.width(), cells.columns());
            const auto between = [&](int column) {
                return interpolated(
                    cells.at(column, rows.first), cells.at(column, rows.second), rows.share);
            };
            larger.at(x, y)
                = interpolated(between(columns.first), between(columns.second), columns.share);
        }
    }
    return larger;
}

void vx::kernels::writeEnlarged(const Cells<double>& cells, QImage& map, const RowLoops& loops)
{
    // For each cell, where the pixels between it and the next one end; for each pixel, how far along it is.
    std::vector<int> ends(static_cast<std::size_t>(cells.columns()), 0);
    std::vector<float> shares;
    shares.reserve(static_cast<std::size_t>(map.width()));
    for (int x = 0; x < map.width(); ++x) {
        const Interpolation columns = interpolationAt(x, map.width(), cells.columns());
        ends[static_cast<std::size_t>(columns.first)] = x + 1;
        shares.push_back(static_cast<float>(columns.share));
    }
    std::vector<float> greys(ends.size() + 1);
    for (int y = 0; y < map.height(); ++y) {
        interpolateRows(cells, interpolationAt(y, map.height(), cells.rows()), greys);
        loops.background.interpolateRow(
            greys.data(), ends.data(), cells.columns(), shares.data(), writableWordRow(map, y));
    }
}
