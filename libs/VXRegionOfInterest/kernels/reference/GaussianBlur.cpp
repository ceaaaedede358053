#include "../image/ExactArithmetic.h"

#include "../GaussianBlur.h"

#include <cmath>

namespace {

struct Sums {
    double red = 0;
    double green = 0;
    double blue = 0;

    void add(QRgb pixel, double weight)
    {
        red += qRed(pixel) * weight;
        green += qGreen(pixel) * weight;
        blue += qBlue(pixel) * weight;
    }
};

// What QImage::pixel answers, without its warning about pixels that lie outside.
QRgb pixelAt(const QImage& image, int x, double row)
{
    constexpr QRgb outside = 12345;
    return row < image.height() ? image.pixel(x, static_cast<int>(row)) : outside;
}

double divisorOf(const QVector<double>& weights)
{
    double divisor = 0;
    for (const double weight : weights)
        divisor = std::trunc(divisor + weight);
    return divisor;
}

int channel(double sum, double divisor)
{
    const double quotient = sum / divisor;
    return std::isfinite(quotient) ? static_cast<int>(quotient) & 0xFF : 0;
}

QRgb packed(const Sums& sums, double divisor)
{
    return qRgb(
        channel(sums.red, divisor), channel(sums.green, divisor), channel(sums.blue, divisor));
}

} // namespace

void vx::kernels::reference::gaussianBlur(
    const QImage& source, const QVector<double>& weights, QImage& target)
{
    const double divisor = divisorOf(weights);
    const int half = weights.size() / 2;
    for (int y = 0; y < target.height(); ++y) {
        for (int x = 0; x < target.width(); ++x) {
            Sums sums;
            for (int k = -half; k <= half; ++k) {
                if (x + k >= 0 && x + k < source.width())
                    sums.add(pixelAt(source, x + k, sums.red), weights.value(half + k));
            }
            target.setPixel(x, y, packed(sums, divisor));
        }
    }
    for (int y = 0; y < target.height(); ++y) {
        for (int x = 0; x < target.width(); ++x) {
            Sums sums;
            for (int k = -half; k <= half; ++k) {
                const double row = k + sums.red;
                if (row >= 0 && row < target.height())
                    sums.add(pixelAt(target, x, row), weights.value(half + k));
            }
            target.setPixel(x, y, packed(sums, divisor));
        }
    }
}
