#include "BlockHistograms.h"

#include "PixelWords.h"

vx::kernels::BlockHistograms::BlockHistograms(
    const QImage& image, const BlockGrid& blockGrid, const RowLoops& rowLoops)
    : words(image)
    , loops(rowLoops)
    , grid(blockGrid)
    , width(grid.columns * grid.block.width())
    , indices(uninitializedArray<quint32>(
          static_cast<std::size_t>(width) * static_cast<std::size_t>(grid.block.height())))
    , counts(grid.binRows, grid.binColumns)
{
}

std::vector<vx::kernels::BinTable> vx::kernels::BlockHistograms::ofRow(int row)
{
    findBins(row * grid.block.height());
    std::vector<BinTable> histograms;
    for (int column = 0; column < grid.columns; ++column)
        histograms.push_back(histogramOf(column));
    return histograms;
}

// All blocks of a row at once: their own rows of pixels are short.
void vx::kernels::BlockHistograms::findBins(int firstRow)
{
    for (int y = 0; y < grid.block.height(); ++y)
        loops.findChromaBins(wordRow(words, firstRow + y), width, grid.binRows, grid.binColumns,
            indices.get() + static_cast<std::ptrdiff_t>(y) * width);
}

vx::kernels::BinTable vx::kernels::BlockHistograms::histogramOf(int column)
{
    const quint32* const first = indices.get() + column * grid.block.width();
    for (int y = 0; y < grid.block.height(); ++y)
        counts.add(first + static_cast<std::ptrdiff_t>(y) * width, grid.block.width());
    BinTable histogram(grid.binRows, grid.binColumns);
    counts.moveInto(histogram.bins(), loops);
    normalizeBins(histogram.bins(), loops);
    return histogram;
}
