#include "VXGaussROI.h"

#include "kernels/CentrePrior.h"

VXGaussROI::VXGaussROI() = default;

VXGaussROI::~VXGaussROI() = default;

QImage VXGaussROI::evaluate(const QImage& image) { return vx::kernels::greyImageOf(levels(image)); }

vx::kernels::BytePlane VXGaussROI::levels(const QImage& image) const
{
    vx::kernels::BytePlane prior = vx::kernels::uninitializedPlane(image.size());
    vx::kernels::centrePrior(prior);
    return prior;
}
