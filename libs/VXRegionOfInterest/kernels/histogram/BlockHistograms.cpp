#include "BlockHistograms.h"

#include "../image/PixelWords.h"
#include "HistogramLoops.h"

vx::kernels::BlockHistograms::BlockHistograms(
    const QImage& image, const BlockGrid& blockGrid, const RowLoops& rowLoops)
    : words(image)
    , loops(rowLoops)
    , grid(blockGrid)
    , width(grid.columns * grid.block.width())
    , indices(static_cast<std::size_t>(width) * static_cast<std::size_t>(grid.block.height()))
    , counts(grid.binRows, grid.binColumns)
{
}

vx::kernels::BinTables vx::kernels::BlockHistograms::ofRow(int row)
{
    findBins(row * grid.block.height());
    BinTables histograms(grid.columns, grid.binRows, grid.binColumns);
    for (int column = 0; column < grid.columns; ++column)
        writeHistogram(column, histograms.at(column));
    return histograms;
}

// Of all blocks of a row at once, because the pixel rows of a single block are short.
void vx::kernels::BlockHistograms::findBins(int firstRow)
{
    for (int y = 0; y < grid.block.height(); ++y)
        loops.histogram.findChromaBins(wordRow(words, firstRow + y), width, grid.binRows,
            grid.binColumns, indices.get() + static_cast<std::ptrdiff_t>(y) * width);
}

void vx::kernels::BlockHistograms::writeHistogram(int column, const Bins& histogram)
{
    const quint32* const first
        = indices.get() + static_cast<std::ptrdiff_t>(column) * grid.block.width();
    for (int y = 0; y < grid.block.height(); ++y)
        counts.add(first + static_cast<std::ptrdiff_t>(y) * width, grid.block.width());
    counts.moveInto(histogram, loops);
    normalizeBins(histogram, loops);
}
