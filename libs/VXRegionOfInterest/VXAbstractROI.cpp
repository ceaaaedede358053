#include "VXAbstractROI.h"

#include "kernels/image/ImageMemory.h"
#include "kernels/image/PixelWords.h"

VXAbstractROI::VXAbstractROI() = default;

VXAbstractROI::~VXAbstractROI() = default;

void VXAbstractROI::setEnabled(bool newEnabled) { enabled = newEnabled; }

bool VXAbstractROI::isEnabled() const { return enabled; }

void VXAbstractROI::setWeight(int newWeight) { weight = newWeight; }

int VXAbstractROI::getWeight() { return weight; }

QImage VXAbstractROI::createTargetImage(const QImage& source) const
{
    return vx::kernels::uninitializedImage(source.size(), QImage::Format_ARGB32);
}

QImage VXAbstractROI::adjustFormat(const QImage& source) const
{
    return vx::kernels::toArgb32(source);
}
