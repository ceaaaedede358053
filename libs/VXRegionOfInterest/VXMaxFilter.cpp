#include "VXMaxFilter.h"

#include "kernels/dilation/Dilation.h"

VXMaxFilter::VXMaxFilter(int filterSize, int spreadThreshold)
    : size(filterSize)
    , threshold(spreadThreshold)
{
}

VXMaxFilter::~VXMaxFilter() = default;

QImage VXMaxFilter::evaluate(const QImage& source)
{
    const int radius = size / 2;
    return vx::kernels::dilate(source, radius, threshold);
}
