#include "kernels/image/ExactArithmetic.h"

#include "VXGaussianBlur.h"

#include "kernels/GaussianBlur.h"

#include <cmath>

namespace {

// The sigma that suits a kernel of this size.
double sigmaFor(int size) { return ((size - 1.0) * 0.5 - 1) * 0.3 + 0.8; }

} // namespace

VXGaussianBlur::VXGaussianBlur(int size, double sigma)
{
    setEnabled(true);
    kernel = createGaussianKernel(size, sigma);
}

VXGaussianBlur::~VXGaussianBlur() = default;

QVector<double> VXGaussianBlur::createGaussianKernel(int size, double sigma)
{
    const double usedSigma = sigma > 0 ? sigma : sigmaFor(size);
    const double centre = (size - 1.0) * 0.5;
    const double scale = -0.5 / (usedSigma * usedSigma);

    QVector<double> weights;
    double sum = 0;
    for (int i = 0; i < size; ++i) {
        const double x = i - centre;
        const double weight = std::exp(scale * x * x);
        weights.append(weight);
        sum += weight;
    }
    const double normalisation = 1 / sum;
    for (double& weight : weights)
        weight *= normalisation;
    return weights;
}

QImage VXGaussianBlur::evaluate(const QImage& source)
{
    QImage blurred = createTargetImage(source);
    vx::kernels::gaussianBlur(source, kernel, blurred);
    return blurred;
}
