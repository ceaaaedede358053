#pragma once

#include "ChromaBins.h"

#include <QImage>
#include <QSize>

namespace vx::kernels {

/// A grid of blocks that begins at the upper left of an image, and how many bins their histograms have.
struct BlockGrid {
    QSize block; ///< in pixels
    int columns; ///< blocks from left to right
    int binRows; ///< of each histogram
    int binColumns; ///< of each histogram
};

/// Histograms of the chroma of an image's blocks: those that countChroma() makes of what
/// packLumaChroma() makes of the image, normalised.
class BlockHistograms {
public:
    /// \pre \a image has 32 bits per pixel and outlives this, all columns of blocks lie within it, and
    /// there are at most 257 rows and columns of bins.
    BlockHistograms(const QImage& image, const BlockGrid& blockGrid,
        const RowLoops& rowLoops = fastestRowLoops());

    /// Those of a row of blocks, from left to right. \pre the row lies within the image.
    BinTables ofRow(int row);

private:
    void findBins(int firstRow);
    void writeHistogram(int column, const Bins& histogram);

    const QImage& words;
    const RowLoops& loops;
    BlockGrid grid;
    int width; ///< of all blocks, in pixels
    AlignedArray<quint32> indices; ///< the bins of a row of blocks
    BinCounts counts;
};

} // namespace vx::kernels
