#include "VXSobelROI.h"

#include "VXGaussianBlur.h"
#include "VXMaxFilter.h"
#include "kernels/BytePlane.h"
#include "kernels/EdgeResponse.h"
#include "kernels/PixelWords.h"

#include <cstdlib>

VXSobelROI::VXSobelROI() { configureSobelH(); }

QImage VXSobelROI::evaluate(const QImage& image)
{
    const QImage blurred = VXGaussianBlur(3, 2.6).evaluate(image);
    configureSobelH();
    const QImage horizontal = convolute(blurred);
    configureSobelV();
    const QImage vertical = convolute(blurred);
    const QImage combined = combine(horizontal, vertical);
    return VXMaxFilter(7, 50).evaluate(combined);
}

// The blur is black for every image, black does not respond, and nothing spreads. The kernel is the one
// that evaluate() leaves behind.
vx::kernels::BytePlane VXSobelROI::levels(const QImage& image)
{
    configureSobelV();
    return vx::kernels::blackPlane(image.size());
}

QImage VXSobelROI::convolute(const QImage& image) const
{
    const QImage source = adjustFormat(image);
    const int divisor = totalWeight() / 2 * 3;
    QImage response = createTargetImage(source);
    vx::kernels::respondToKernel(source, kernel, divisor, response);
    return response;
}

void VXSobelROI::configureSobelH() { kernel = { 1, 2, 1, 0, 0, 0, -1, -2, -1 }; }

void VXSobelROI::configureSobelV() { kernel = { 1, 0, -1, 2, 0, -2, 1, 0, -1 }; }

int VXSobelROI::totalWeight() const
{
    int total = 0;
    for (const int entry : kernel)
        total += std::abs(entry);
    return total;
}

QImage VXSobelROI::combine(const QImage& horizontal, const QImage& vertical)
{
    const QImage across = vx::kernels::toPixelWords(horizontal);
    const QImage down = vx::kernels::toPixelWords(vertical);
    QImage combined(across.size(), across.format());
    vx::kernels::combineResponses(across, down, combined);
    return combined;
}
