#include "VXGaussROI.h"

#include "kernels/CentrePrior.h"
#include "kernels/image/GreyMap.h"

VXGaussROI::VXGaussROI() = default;

VXGaussROI::~VXGaussROI() = default;

QImage VXGaussROI::evaluate(const QImage& image)
{
    QImage map = createTargetImage(image);
    QImage prior = vx::kernels::uninitializedGreyMap(map.size());
    vx::kernels::centrePrior(prior);
    vx::kernels::writeOpaqueGrey(prior, map);
    return map;
}
