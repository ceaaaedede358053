#include "../edges/EdgeResponse.h"

#include "../image/PixelWords.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

QRgb grey(QRgb alphaSource, int level)
{
    return qRgba(level & 0xFF, level & 0xFF, level & 0xFF, qAlpha(alphaSource));
}

int response(const QImage& words, const vx::kernels::Kernel3x3& kernel, int divisor, int x, int y)
{
    int red = 0;
    int green = 0;
    int blue = 0;
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            const QRgb pixel = vx::kernels::wordRow(words, y + dy)[x + dx];
            const int tap = (dy + 1) * 3 + dx + 1;
            const int weight = kernel.at(static_cast<std::size_t>(tap));
            red += weight * qRed(pixel);
            green += weight * qGreen(pixel);
            blue += weight * qBlue(pixel);
        }
    }
    return (std::abs(red) + std::abs(green) + std::abs(blue)) / divisor;
}

} // namespace

void vx::kernels::reference::respondToKernel(
    const QImage& words, const Kernel3x3& kernel, int divisor, QImage& target)
{
    const bool hasInnerPixels = words.width() >= 3 && words.height() >= 3;
    for (int y = 0; y < target.height(); ++y) {
        for (int x = 0; x < target.width(); ++x) {
            QRgb& pixel = writableWordRow(target, y)[x];
            pixel = opaqueBlack;
            if (hasInnerPixels) {
                const int innerX = std::clamp(x, 1, words.width() - 2);
                const int innerY = std::clamp(y, 1, words.height() - 2);
                pixel = grey(wordRow(words, innerY)[innerX],
                    response(words, kernel, divisor, innerX, innerY));
            }
        }
    }
}

void vx::kernels::reference::combineResponses(
    const QImage& horizontal, const QImage& vertical, QImage& target)
{
    for (int y = 0; y < target.height(); ++y) {
        for (int x = 0; x < target.width(); ++x) {
            const QRgb across = wordRow(horizontal, y)[x];
            const int a = qRed(across);
            const int b = vertical.valid(x, y) ? qRed(wordRow(vertical, y)[x]) : 0;
            const int magnitude = static_cast<int>(std::sqrt(static_cast<double>(a * a + b * b)));
            writableWordRow(target, y)[x] = grey(across, magnitude);
        }
    }
}
