#include "VXMaxFilter.h"

#include "kernels/dilation/MaxFilter.h"

VXMaxFilter::VXMaxFilter(int filterSize, int spreadThreshold)
    : size(filterSize)
    , threshold(spreadThreshold)
{
}

VXMaxFilter::~VXMaxFilter() = default;

QImage VXMaxFilter::evaluate(const QImage& source)
{
    const int arm = size / 2;
    return vx::kernels::maxFilter(source, arm, threshold);
}
