#include "VXGaussROI.h"

#include "kernels/CentrePrior.h"

VXGaussROI::VXGaussROI() = default;

VXGaussROI::~VXGaussROI() = default;

QImage VXGaussROI::evaluate(const QImage& image)
{
    // Where Qt has no memory for the map, none is taken for its levels.
    const bool isPossible = !createTargetImage(image).isNull();
    return isPossible ? vx::kernels::greyImageOf(levels(image)) : QImage();
}

vx::kernels::BytePlane VXGaussROI::levels(const QImage& image) const
{
    vx::kernels::BytePlane prior = vx::kernels::uninitializedPlane(image.size());
    vx::kernels::centrePrior(prior);
    return prior;
}
