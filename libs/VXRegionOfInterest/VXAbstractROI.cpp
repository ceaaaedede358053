#include "VXAbstractROI.h"

#include "kernels/FreshMemory.h"

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
    return source.convertToFormat(QImage::Format_ARGB32, Qt::AutoColor);
}
