#include "VXHistogram.h"

#include "kernels/ChromaBins.h"
#include "kernels/PixelWords.h"

namespace {

using Table = std::shared_ptr<std::vector<double>>;

vx::kernels::Bins viewOf(const Table& table, int rows, int columns)
{
    return { table ? table->data() : nullptr, rows, columns };
}

} // namespace

VXHistogram::VXHistogram() = default;

VXHistogram::VXHistogram(const QImage& image, int rows, int columns)
{
    if (rows < 1 || columns < 1)
        return;
    bins1 = rows;
    bins2 = columns;
    table = std::make_shared<std::vector<double>>(
        static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns));
    vx::kernels::countChroma(vx::kernels::toPixelWords(image), viewOf(table, bins1, bins2));
}

void VXHistogram::normalizeHistogram() { vx::kernels::normalizeBins(viewOf(table, bins1, bins2)); }

double VXHistogram::compareHistogram(VXHistogram* other)
{
    if (other == nullptr)
        return 0.0;
    return vx::kernels::chiSquareDistance(
        viewOf(table, bins1, bins2), viewOf(other->table, other->bins1, other->bins2));
}

double VXHistogram::getHistogramValue(int column, int row)
{
    const bool exists = column >= 0 && column < bins2 && row >= 0 && row < bins1;
    return exists ? viewOf(table, bins1, bins2).row(row)[column] : 0.0;
}
