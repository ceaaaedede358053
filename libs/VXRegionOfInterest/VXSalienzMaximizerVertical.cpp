#include "VXSalienzMaximizerVertical.h"

#include "kernels/image/PixelWords.h"
#include "kernels/image/RedSums.h"

VXSalienzMaximizerVertical::VXSalienzMaximizerVertical() = default;

VXSalienzMaximizerVertical::VXSalienzMaximizerVertical(const VXSalienzMaximizerVertical& other)
    = default;

VXSalienzMaximizerVertical::~VXSalienzMaximizerVertical() = default;

QList<long long> VXSalienzMaximizerVertical::sums(const QImage& image) const
{
    return vx::kernels::rowRedSums(vx::kernels::toPixelWords(image));
}
