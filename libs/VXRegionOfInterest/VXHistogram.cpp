#include "VXHistogram.h"

#include "kernels/ChromaBins.h"
#include "kernels/PixelWords.h"

#include <algorithm>

VXHistogram::VXHistogram() = default;

VXHistogram::VXHistogram(const QImage& image, int rows, int columns)
    : bins1(std::max(rows, 0))
    , bins2(std::max(columns, 0))
{
    const auto count = static_cast<std::size_t>(bins1) * static_cast<std::size_t>(bins2);
    table.reset(new double[count]()); // zeros
    vx::kernels::countChroma(vx::kernels::toPixelWords(image), { table.get(), bins1, bins2 });
}

void VXHistogram::normalizeHistogram()
{
    vx::kernels::normalizeBins({ table.get(), bins1, bins2 });
}

double VXHistogram::compareHistogram(VXHistogram* other)
{
    if (other == nullptr)
        return 0.0;
    return vx::kernels::chiSquareDistance(
        { table.get(), bins1, bins2 }, { other->table.get(), other->bins1, other->bins2 });
}

double VXHistogram::getHistogramValue(int column, int row)
{
    const bool exists = column >= 0 && column < bins2 && row >= 0 && row < bins1;
    return exists ? vx::kernels::Bins { table.get(), bins1, bins2 }.row(row)[column] : 0.0;
}
