#include "LiteralAnalysis.h"

#include "Pictures.h"

#include <VXRegionOfInterest/VXGaussianBlur.h>

#include "kernels/CentrePrior.h"
#include "kernels/GaussianBlur.h"
#include "kernels/blend/Blend.h"
#include "kernels/dilation/Dilation.h"
#include "kernels/edges/EdgeResponse.h"
#include "kernels/surround/SurroundContrast.h"
#include "support/GreyImage.h"
#include "support/PlainHistogramROI.h"

namespace reference = vx::kernels::reference;

QImage benchmarks::literalEdges(const QImage& image)
{
    QImage blurred = mapFor(image);
    reference::gaussianBlur(image, VXGaussianBlur::createGaussianKernel(3, 2.6), blurred);
    QImage horizontal = mapFor(image);
    reference::respondToKernel(blurred, { 1, 2, 1, 0, 0, 0, -1, -2, -1 }, 12, horizontal);
    QImage vertical = mapFor(image);
    reference::respondToKernel(blurred, { 1, 0, -1, 2, 0, -2, 1, 0, -1 }, 12, vertical);
    QImage combined = mapFor(image);
    reference::combineResponses(horizontal, vertical, combined);
    return reference::dilate(combined, 3, 50);
}

QImage benchmarks::literalContrast(const QImage& image)
{
    const QImage contrast = support::greyImage(
        image.size(), [&](QImage& greyMap) { reference::surroundContrast(image, greyMap); });
    return reference::dilate(contrast, 45, 150);
}

QImage benchmarks::literalAnalysis(const QImage& image)
{
    const QImage prior = support::greyImage(
        image.size(), [](QImage& greyMap) { reference::centrePrior(greyMap); });
    QImage blended = mapFor(image);
    reference::blend({ literalEdges(image), prior, support::plainHistogramMap(image, {}),
                         literalContrast(image) },
        { 20, 2, -10, 10 }, blended);
    return blended;
}
