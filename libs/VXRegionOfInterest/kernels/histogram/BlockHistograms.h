#pragma once

#include "ChromaBins.h"

#include <QImage>
#include <QSize>

namespace vx::kernels {

/// A grid of blocks that starts at the upper left of an image, and the shape of their histograms.
struct BlockGrid {
    QSize block; ///< in pixels
    int columns; ///< blocks in a row
    int binRows; ///< of each histogram
    int binColumns; ///< of each histogram
};

/// The chroma histograms of an image's blocks: what countChroma() counts in what packLumaChroma() makes of the image,
/// normalised. The packed image is never in memory.
class BlockHistograms {
public:
    /// \pre \a image has 32 bits per pixel and outlives this, all columns of blocks lie within it, and
    /// there are at most 257 rows and columns of bins.
    BlockHistograms(const QImage& image, const BlockGrid& blockGrid,
        const RowLoops& rowLoops = fastestRowLoops());

    /// The histograms of a row of blocks, from left to right. \pre the row lies within the image.
    BinTables ofRow(int row);

private:
    void findBins(int firstRow);
    void writeHistogram(int column, const Bins& histogram);

    const QImage& words;
    const RowLoops& loops;
    BlockGrid grid;
    int width; ///< of all blocks, in pixels
    AlignedArray<quint32> indices; ///< the bins of the pixels of a row of blocks
    BinCounts counts;
};

} // namespace vx::kernels
