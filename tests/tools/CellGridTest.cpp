#include "host/crop/CellGrid.h"

#include "host/HostError.h"

#include <gtest/gtest.h>

namespace {

QImage filled(const QSize& size, QRgb colour)
{
    QImage map(size, QImage::Format_ARGB32);
    map.fill(colour);
    return map;
}

const host::GridCell& cellAt(const host::CellGrid& grid, int columns, int column, int row)
{
    return grid.cells.at(row * columns + column);
}

} // namespace

TEST(CellGrid, hasColumnsAcrossAndRowsDown)
{
    const host::CellGrid grid
        = host::rateCells(filled({ 120, 80 }, qRgb(50, 50, 50)), { 1200, 800 }, { 12, 8 });
    ASSERT_EQ(grid.cells.size(), 12 * 8);
    const host::GridCell& last = grid.cells.last();
    EXPECT_EQ(last.column, 11);
    EXPECT_EQ(last.row, 7);
    EXPECT_EQ(last.area, QRect(1100, 700, 100, 100));
}

TEST(CellGrid, ratesTheCellsOfAnEvenMapAsAverage)
{
    const host::CellGrid grid
        = host::rateCells(filled({ 120, 80 }, qRgb(50, 50, 50)), { 1200, 800 }, { 12, 8 });
    for (const host::GridCell& cell : grid.cells)
        EXPECT_EQ(cell.level, 128);
}

TEST(CellGrid, ratesACellThatHoldsEverythingAsWhiteAndTheOthersAsBlack)
{
    QImage map = filled({ 120, 80 }, qRgb(0, 0, 0));
    for (int y = 40; y < 60; ++y)
        for (int x = 90; x < 120; ++x)
            map.setPixel(x, y, qRgb(200, 200, 200));
    const host::CellGrid grid = host::rateCells(map, { 120, 80 }, { 4, 4 });
    for (const host::GridCell& cell : grid.cells)
        EXPECT_EQ(cell.level, cell.column == 3 && cell.row == 2 ? 255 : 0);
    EXPECT_EQ(qRed(grid.picture.pixel(100, 50)), 255);
}

TEST(CellGrid, makesAllCellsEquallyLargeWhereTheGridDoesNotDivideTheMap)
{
    const host::CellGrid grid
        = host::rateCells(filled({ 121, 83 }, qRgb(50, 50, 50)), { 121, 83 }, { 7, 5 });
    EXPECT_EQ(grid.picture.width() % 7, 0);
    EXPECT_EQ(grid.picture.height() % 5, 0);
    for (const host::GridCell& cell : grid.cells)
        EXPECT_EQ(cell.level, 128);
}

TEST(CellGrid, coversThePictureWithoutGapsOrOverlaps)
{
    const QSize picture(13, 7);
    const host::CellGrid grid
        = host::rateCells(filled({ 20, 20 }, qRgb(9, 9, 9)), picture, { 5, 9 });
    QVector<int> coverage(picture.width() * picture.height(), 0);
    for (const host::GridCell& cell : grid.cells) {
        for (int y = cell.area.top(); y <= cell.area.bottom(); ++y)
            for (int x = cell.area.left(); x <= cell.area.right(); ++x)
                ++coverage[y * picture.width() + x];
    }
    EXPECT_EQ(coverage, QVector<int>(picture.width() * picture.height(), 1));
    EXPECT_TRUE(cellAt(grid, 5, 0, 0).area.isEmpty()) << "a row of less than a pixel";
}
