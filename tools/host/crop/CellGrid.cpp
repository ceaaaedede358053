#include "CellGrid.h"

#include "host/picture/ImageMemory.h"

#include <VXRegionOfInterest/VXSalienzClusterer.h>

#include <algorithm>

namespace host {

namespace {

// The multiple of count that is nearest to length, and at least count.
int multipleNear(int length, int count)
{
    return std::max(1, (length + count / 2) / count) * count;
}

QRect areaOf(int column, int row, const QSize& grid, const QSize& picture)
{
    const auto border = [](int index, int count, int length) {
        return static_cast<int>(qint64 { index } * length / count);
    };
    const QPoint first(border(column, grid.width(), picture.width()),
        border(row, grid.height(), picture.height()));
    const QPoint end(border(column + 1, grid.width(), picture.width()),
        border(row + 1, grid.height(), picture.height()));
    return { first, end - QPoint(1, 1) };
}

} // namespace

CellGrid rateCells(const QImage& map, const QSize& pictureSize, const QSize& grid)
{
    const QSize even(
        multipleNear(map.width(), grid.width()), multipleNear(map.height(), grid.height()));
    VXSalienzClusterer clusterer;
    clusterer.setCountCubesV(grid.width()); // V divides the width: the clusterer's axes are crossed
    clusterer.setCountCubesH(grid.height());
    CellGrid result { clusterer.cluster(notNull(
                          map.scaled(even, Qt::IgnoreAspectRatio, Qt::SmoothTransformation))),
        {} };
    const QSize cell(even.width() / grid.width(), even.height() / grid.height());
    for (int row = 0; row < grid.height(); ++row) {
        for (int column = 0; column < grid.width(); ++column)
            result.cells.append({ column, row, areaOf(column, row, grid, pictureSize),
                qRed(result.picture.pixel(column * cell.width(), row * cell.height())) });
    }
    return result;
}

} // namespace host
