#include "Scaling.h"

#include "ImageMemory.h"

QImage vx::kernels::scaledInto(const QSize& bound, const QImage& image)
{
    // Qt warns when it is asked to scale a null image.
    if (image.isNull() || !bound.isValid())
        return image;
    const QSize size = bound.isEmpty() ? QSize() : image.size().scaled(bound, Qt::KeepAspectRatio);
    return held(
        image.scaled(bound, Qt::KeepAspectRatio, Qt::FastTransformation), size, image.depth());
}
