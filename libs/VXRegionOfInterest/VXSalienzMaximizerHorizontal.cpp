#include "VXSalienzMaximizerHorizontal.h"

#include "kernels/PixelWords.h"
#include "kernels/RedSums.h"

VXSalienzMaximizerHorizontal::VXSalienzMaximizerHorizontal() = default;

VXSalienzMaximizerHorizontal::VXSalienzMaximizerHorizontal(
    const VXSalienzMaximizerHorizontal& other)
    = default;

VXSalienzMaximizerHorizontal::~VXSalienzMaximizerHorizontal() = default;

QList<long long> VXSalienzMaximizerHorizontal::sums(const QImage& image) const
{
    return vx::kernels::columnRedSums(vx::kernels::toPixelWords(image));
}
