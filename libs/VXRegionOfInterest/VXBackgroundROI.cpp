#include "VXBackgroundROI.h"

#include "kernels/background/BackgroundMap.h"
#include "kernels/image/PixelWords.h"

VXBackgroundROI::VXBackgroundROI() = default;

VXBackgroundROI::~VXBackgroundROI() = default;

QImage VXBackgroundROI::evaluate(const QImage& image)
{
    const QImage words = vx::kernels::toPixelWords(image);
    QImage map = createTargetImage(words);
    vx::kernels::writeBackgroundMap(words, map);
    return map;
}
