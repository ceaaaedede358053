#include "VXGaussROI.h"

#include "kernels/CentrePrior.h"

VXGaussROI::VXGaussROI() = default;

VXGaussROI::~VXGaussROI() = default;

QImage VXGaussROI::evaluate(const QImage& image)
{
    QImage map = createTargetImage(image);
    vx::kernels::centrePrior(map);
    return map;
}
