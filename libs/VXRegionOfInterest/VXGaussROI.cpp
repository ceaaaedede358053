#include "VXGaussROI.h"

#include "kernels/CentrePrior.h"
#include "kernels/image/Levels.h"

VXGaussROI::VXGaussROI() = default;

VXGaussROI::~VXGaussROI() = default;

QImage VXGaussROI::evaluate(const QImage& image)
{
    QImage map = createTargetImage(image);
    QImage prior = vx::kernels::uninitializedLevels(map.size());
    vx::kernels::centrePrior(prior);
    vx::kernels::writeGrey(prior, map);
    return map;
}
