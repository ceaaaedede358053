#include "VXHistogram.h"

#include "kernels/histogram/ChromaBins.h"
#include "kernels/image/PixelWords.h"

struct VXHistogram::Table {
    Table(int rows, int columns)
        : tables(1, rows, columns)
        , bins(tables.at(0))
    {
    }

    vx::kernels::BinTables tables;
    vx::kernels::Bins bins;
};

VXHistogram::VXHistogram() = default;

VXHistogram::VXHistogram(const QImage& image, int rows, int columns)
{
    if (rows < 1 || columns < 1)
        return;
    bins1 = rows;
    bins2 = columns;
    table = std::make_shared<Table>(rows, columns);
    vx::kernels::countChroma(vx::kernels::toPixelWords(image), table->bins);
}

void VXHistogram::normalizeHistogram()
{
    if (table)
        vx::kernels::normalizeBins(table->bins);
}

double VXHistogram::compareHistogram(VXHistogram* other)
{
    if (other == nullptr || !table)
        return 0.0;
    const vx::kernels::Bins nothing {};
    return vx::kernels::chiSquareDistance(table->bins, other->table ? other->table->bins : nothing);
}

double VXHistogram::getHistogramValue(int column, int row)
{
    const bool exists = column >= 0 && column < bins2 && row >= 0 && row < bins1;
    return exists ? table->bins.row(row)[column] : 0.0;
}
