#include "VXSalienzMaximizerHorizontal.h"

#include "kernels/image/PixelWords.h"
#include "kernels/image/RedSums.h"

VXSalienzMaximizerHorizontal::VXSalienzMaximizerHorizontal() = default;

VXSalienzMaximizerHorizontal::VXSalienzMaximizerHorizontal(
    const VXSalienzMaximizerHorizontal& other)
    = default;

VXSalienzMaximizerHorizontal::~VXSalienzMaximizerHorizontal() = default;

QList<long long> VXSalienzMaximizerHorizontal::sums(const QImage& image) const
{
    return vx::kernels::columnRedSums(vx::kernels::toPixelWords(image));
}
