#include "VXHistogramROI.h"

#include "VXDisjointSet.h"
#include "VXSegmentEdge.h"
#include "kernels/histogram/BlockHistograms.h"
#include "kernels/image/ImageMemory.h"
#include "kernels/image/LumaChroma.h"
#include "kernels/image/PixelWords.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <map>
#include <utility>
#include <vector>

namespace {

constexpr int mostBlocks = 100; // along each side of the grid

// With more bins than there are byte values, some stay empty. The first of these makes the smallest bin 0, and
// more of them change nothing.
constexpr int mostUsefulBins = 257;

// The grid of blocks that an image is divided into.
struct Grid {
    int rows = 0;
    int columns = 0;

    int indexOf(const QPoint& block) const { return block.y() * columns + block.x(); }
    bool contains(const QPoint& block) const { return QRect(0, 0, columns, rows).contains(block); }
};

using HistogramRows = std::map<int, vx::kernels::BinTables>;
using Edges = std::vector<VXSegmentEdge>;

// Where the neighbours lie to which a block has edges. Every pair has one edge: from the block on the left or, of
// two in a column, from the upper one.
constexpr std::array<QPoint, vx::kernels::neighbourCount> neighbourSteps { QPoint(1, -1),
    QPoint(1, 0), QPoint(1, 1), QPoint(0, 1) };

// Appends the edges from the blocks of a row along which blocks merge; a distance that is NaN never counts.
void appendEdges(
    const HistogramRows& histograms, const Grid& grid, int row, double threshold, Edges& edges)
{
    const auto at = [&](const QPoint& block) { return histograms.at(block.y()).at(block.x()); };
    for (int column = 0; column < grid.columns; ++column) {
        const QPoint own(column, row);
        std::array<vx::kernels::Bins, neighbourSteps.size()> others {};
        for (std::size_t i = 0; i < others.size(); ++i) {
            if (grid.contains(own + neighbourSteps[i]))
                others[i] = at(own + neighbourSteps[i]);
        }
        const auto distances = vx::kernels::chiSquareDistances(at(own), others, threshold);
        for (std::size_t i = 0; i < others.size(); ++i) {
            const QPoint other = own + neighbourSteps[i];
            if (grid.contains(other) && distances[i] <= threshold)
                edges.emplace_back(grid.indexOf(own), grid.indexOf(other), distances[i]);
        }
    }
}

Edges mergingEdges(vx::kernels::BlockHistograms& blocks, const Grid& grid, double threshold)
{
    Edges edges;
    HistogramRows histograms;
    histograms.emplace(0, blocks.ofRow(0));
    for (int row = 0; row < grid.rows; ++row) {
        if (row + 1 < grid.rows)
            histograms.emplace(row + 1, blocks.ofRow(row + 1));
        appendEdges(histograms, grid, row, threshold, edges);
        // Blocks have edges to the rows directly above and below theirs, so the row above is no longer needed. All
        // histograms together may be large.
        histograms.erase(row - 1);
    }
    return edges;
}

VXDisjointSet merged(const Grid& grid, const Edges& sortedEdges)
{
    VXDisjointSet regions(grid.rows, grid.columns);
    for (const VXSegmentEdge& edge : sortedEdges) {
        const int a = regions.find(edge.from());
        const int b = regions.find(edge.to());
        if (a != b)
            regions.join(a, b);
    }
    return regions;
}

// The part of the block at (column, row) of a grid that lies within the frame: only that is painted.
QRect blockWithin(const QSize& frame, int column, int row, const QSize& block)
{
    const auto part = [](qint64 index, qint64 length, qint64 side) {
        const qint64 first = std::clamp<qint64>(index * length, 0, side);
        const qint64 end = std::clamp<qint64>((index + 1) * length, 0, side);
        return std::pair(static_cast<int>(first), static_cast<int>(end - first));
    };
    const auto [left, width] = part(column, block.width(), frame.width());
    const auto [top, height] = part(row, block.height(), frame.height());
    return QRect(left, top, width, height);
}

// The size of an image in QPainter's coordinates: in pixels, divided by the device pixel ratio, rounded up.
QSize paintedSize(const QImage& image)
{
    const double ratio = image.devicePixelRatio();
    const auto painted = [ratio](int side) {
        return ratio > 0 ? static_cast<int>(std::min<double>(std::ceil(side / ratio), INT_MAX)) : 0;
    };
    return QSize(painted(image.width()), painted(image.height()));
}

} // namespace

VXHistogramROI::VXHistogramROI() = default;

VXHistogramROI::~VXHistogramROI() = default;

QImage VXHistogramROI::evaluate(const QImage& image)
{
    const QImage words = vx::kernels::toPixelWords(image);
    const bool isInRange = verticalBlocks >= 1 && verticalBlocks <= mostBlocks
        && horizontalBlocks >= 1 && horizontalBlocks <= mostBlocks && bin1 >= 1 && bin2 >= 1;
    if (!isInRange || words.width() < horizontalBlocks || words.height() < verticalBlocks) {
        QImage black = createTargetImage(words);
        black.fill(vx::kernels::opaqueBlack);
        return black;
    }

    const Grid grid { verticalBlocks, horizontalBlocks };
    const QSize block(words.width() / horizontalBlocks, words.height() / verticalBlocks);
    vx::kernels::BlockHistograms blocks(words,
        { block, horizontalBlocks, std::min(bin1, mostUsefulBins),
            std::min(bin2, mostUsefulBins) });
    Edges edges = mergingEdges(blocks, grid, chiSquareThreshold);
    std::stable_sort(edges.begin(), edges.end());
    VXDisjointSet regions = merged(grid, edges);
    QImage map = createTargetImage(words);
    paintLargeRegions(regions, block, map);
    return map;
}

// Blocks of other regions are black, and so is what the grid leaves over at the right and at the bottom. All pixel
// rows of a row of blocks are the same.
void VXHistogramROI::paintLargeRegions(
    VXDisjointSet& regions, const QSize& blockSize, QImage& map) const
{
    const QMap<int, QVector<int>> extents = regions.getSegmentSizes();
    QImage pixels = vx::kernels::uninitializedImage(QSize(map.width(), 1), map.format());
    for (int row = 0; row <= verticalBlocks; ++row) {
        pixels.fill(vx::kernels::opaqueBlack);
        for (int column = 0; row < verticalBlocks && column < horizontalBlocks; ++column) {
            const QVector<int> extent
                = extents.value(regions.find(row * horizontalBlocks + column));
            const int dy = extent.at(3) - extent.at(1);
            const int dx = extent.at(2) - extent.at(0);
            if (dy > verticalBlocks * minHeight || dx > horizontalBlocks * minWidth)
                drawTarget(column, 0, dy * dx - 1, pixels, blockSize.width(), 1);
        }
        const int first = row * blockSize.height();
        const int end = row < verticalBlocks ? first + blockSize.height() : map.height();
        vx::kernels::repeatRow(pixels, first, end, map);
    }
}

void VXHistogramROI::setChiSquareThreshold(double threshold) { chiSquareThreshold = threshold; }

void VXHistogramROI::setVerticalBlocks(int blocks) { verticalBlocks = blocks; }

void VXHistogramROI::setHorizontalBlocks(int blocks) { horizontalBlocks = blocks; }

void VXHistogramROI::setMinHeight(double fraction) { minHeight = fraction; }

void VXHistogramROI::setMinWidth(double fraction) { minWidth = fraction; }

void VXHistogramROI::setBin1(int bins) { bin1 = bins; }

void VXHistogramROI::setBin2(int bins) { bin2 = bins; }

// NOLINTNEXTLINE(performance-unnecessary-value-param): the signature is fixed
QImage VXHistogramROI::convertToYcbcr(QImage sizeImage, const QImage& source) const
{
    const QImage words = vx::kernels::toPixelWords(source);
    QImage converted = createTargetImage(source);
    const QSize common = sizeImage.size().boundedTo(words.size());
    if (common != source.size())
        converted.fill(vx::kernels::opaqueBlack);
    vx::kernels::packLumaChroma(words, common, converted);
    return converted;
}

unsigned int VXHistogramROI::RGB2YCrCb(const unsigned int& rgb) const
{
    return vx::kernels::packedLumaChromaOf(rgb);
}

void VXHistogramROI::drawTarget(
    int column, int row, double value, QImage& target, int blockWidth, int blockHeight) const
{
    const bool isPaintable = !target.isNull() && target.format() != QImage::Format_Indexed8;
    if (!isPaintable || blockWidth < 1 || blockHeight < 1)
        return;
    const int level = value >= 256 ? 255 : value > 0 ? static_cast<int>(value) : 0;
    const QRect block
        = blockWithin(paintedSize(target), column, row, QSize(blockWidth, blockHeight));
    if (!block.isEmpty())
        vx::kernels::fillOpaque(block, qRgb(level, level, level), target);
}
