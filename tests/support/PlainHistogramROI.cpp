#include "PlainHistogramROI.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

namespace support {

namespace {

using Table = std::vector<double>;

struct Edge {
    int from;
    int to;
    double weight;
};

// The extent of a region along one axis.
struct Extent {
    bool isNew = true;
    int first = 0;
    int second = 0;

    void add(int position)
    {
        if (isNew) {
            first = position;
            second = position;
        } else if (first < position) {
            second = position;
        } else {
            second = first;
            first = position;
        }
        isNew = false;
    }
};

struct Region {
    Extent columns;
    Extent rows;
};

Table normalisedTable(const QImage& image, const QRect& block, const HistogramSettings& settings)
{
    const auto rows = static_cast<std::size_t>(settings.bin1);
    const auto columns = static_cast<std::size_t>(settings.bin2);
    Table table(rows * columns);
    for (int y = block.top(); y <= block.bottom(); ++y) {
        for (int x = block.left(); x <= block.right(); ++x) {
            const QRgb p = reinterpret_cast<const QRgb*>(image.constScanLine(y))[x];
            const double luma = qRed(p) * 0.299 + qGreen(p) * 0.587 + qBlue(p) * 0.114;
            const int cb = static_cast<int>((qBlue(p) - luma) * 0.564 + 128);
            const int cr = static_cast<int>((qRed(p) - luma) * 0.713 + 128);
            const int bin = cb * settings.bin1 / 256 * settings.bin2 + cr * settings.bin2 / 256;
            table[static_cast<std::size_t>(bin)] += 1;
        }
    }
    const double least = std::min(1000.0, *std::min_element(table.begin(), table.end()));
    const double greatest = *std::max_element(table.begin(), table.end());
    for (double& value : table)
        value = (value - least) / (greatest - least);
    return table;
}

double distance(const Table& own, const Table& other)
{
    double sum = 0;
    for (std::size_t i = 0; i < own.size(); ++i) {
        if (own[i] != 0 && !std::isnan(own[i]))
            sum += (own[i] - other[i]) * (own[i] - other[i]) / own[i];
    }
    return sum;
}

std::vector<Table> tablesOf(const QImage& image, const HistogramSettings& settings)
{
    const QSize size(
        image.width() / settings.horizontalBlocks, image.height() / settings.verticalBlocks);
    std::vector<Table> tables;
    for (int y = 0; y < settings.verticalBlocks; ++y) {
        for (int x = 0; x < settings.horizontalBlocks; ++x)
            tables.push_back(normalisedTable(
                image, QRect(QPoint(x * size.width(), y * size.height()), size), settings));
    }
    return tables;
}

std::vector<Edge> edgesOf(const std::vector<Table>& tables, const HistogramSettings& settings)
{
    const int columns = settings.horizontalBlocks;
    const int rows = settings.verticalBlocks;
    std::vector<Edge> edges;
    const auto append = [&](int i, int j) {
        edges.push_back({ i, j,
            distance(tables[static_cast<std::size_t>(i)], tables[static_cast<std::size_t>(j)]) });
    };
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < columns; ++x) {
            const int i = y * columns + x;
            if (y > 0 && x < columns - 1)
                append(i, i - columns + 1);
            if (x < columns - 1)
                append(i, i + 1);
            if (y < rows - 1 && x < columns - 1)
                append(i, i + columns + 1);
            if (y < rows - 1)
                append(i, i + columns);
        }
    }
    return edges;
}

// Which cells belong together does not depend on the order of merging.
std::vector<int> labelsOf(const std::vector<Edge>& edges, const HistogramSettings& settings)
{
    const int blocks = settings.verticalBlocks * settings.horizontalBlocks;
    std::vector<int> labels(static_cast<std::size_t>(blocks));
    std::iota(labels.begin(), labels.end(), 0);
    for (const Edge& edge : edges) {
        if (!(edge.weight <= settings.chiSquareThreshold))
            continue;
        const int from = labels[static_cast<std::size_t>(edge.from)];
        const int to = labels[static_cast<std::size_t>(edge.to)];
        std::replace(labels.begin(), labels.end(), from, to);
    }
    return labels;
}

} // namespace

QImage plainHistogramMap(const QImage& image, const HistogramSettings& settings)
{
    const std::vector<int> labels
        = labelsOf(edgesOf(tablesOf(image, settings), settings), settings);
    std::vector<Region> regions(labels.size());
    const auto regionOf = [&](int block) -> Region& {
        return regions[static_cast<std::size_t>(labels[static_cast<std::size_t>(block)])];
    };
    for (int i = 0; i < static_cast<int>(labels.size()); ++i) {
        regionOf(i).columns.add(i % settings.horizontalBlocks);
        regionOf(i).rows.add(i / settings.horizontalBlocks);
    }

    QImage map(image.size(), QImage::Format_ARGB32);
    map.fill(Qt::black);
    const int blockWidth = image.width() / settings.horizontalBlocks;
    const int blockHeight = image.height() / settings.verticalBlocks;
    for (int y = 0; y < blockHeight * settings.verticalBlocks; ++y) {
        for (int x = 0; x < blockWidth * settings.horizontalBlocks; ++x) {
            const int i = y / blockHeight * settings.horizontalBlocks + x / blockWidth;
            const Region& region = regionOf(i);
            const int dx = region.columns.second - region.columns.first;
            const int dy = region.rows.second - region.rows.first;
            const int level = std::clamp(dy * dx - 1, 0, 255);
            if (dy > settings.verticalBlocks * settings.minHeight
                || dx > settings.horizontalBlocks * settings.minWidth)
                map.setPixel(x, y, qRgb(level, level, level));
        }
    }
    return map;
}

} // namespace support
