#include "EdgeResponse.h"

#include "PixelWords.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace {

using namespace vx::kernels;

constexpr QRgb alphaMask = 0xFF000000U;

QRgb greyWithAlphaOf(QRgb pixel, int level)
{
    return (pixel & alphaMask) | (static_cast<QRgb>(level) & 0xFFU) * 0x010101U;
}

// The three rows around an inner row, and the weights on them.
struct Neighbourhood {
    std::array<const QRgb*, 3> rows;
    const Kernel3x3& kernel;

    int weightedSum(int x, unsigned shift) const
    {
        int sum = 0;
        for (std::size_t tap = 0; tap < kernel.size(); ++tap) {
            const QRgb pixel = rows[tap / 3][x - 1 + static_cast<int>(tap % 3)];
            sum += kernel[tap] * static_cast<int>(pixel >> shift & 0xFFU);
        }
        return sum;
    }
};

void respondAlongRow(const Neighbourhood& pixels, int width, int divisor, QRgb* target)
{
    for (int x = 1; x < width - 1; ++x) {
        const int strength = std::abs(pixels.weightedSum(x, 16))
            + std::abs(pixels.weightedSum(x, 8)) + std::abs(pixels.weightedSum(x, 0));
        target[x] = greyWithAlphaOf(pixels.rows[1][x], strength / divisor);
    }
    target[0] = target[1];
    target[width - 1] = target[width - 2];
}

} // namespace

void vx::kernels::respondToKernel(
    const QImage& words, const Kernel3x3& kernel, int divisor, QImage& target)
{
    const int width = target.width();
    const int height = target.height();
    if (width < 3 || height < 3) {
        target.fill(opaqueBlack);
        return;
    }
    for (int y = 1; y < height - 1; ++y) {
        const Neighbourhood pixels {
            { wordRow(words, y - 1), wordRow(words, y), wordRow(words, y + 1) }, kernel
        };
        respondAlongRow(pixels, width, divisor, writableWordRow(target, y));
    }
    std::copy_n(wordRow(target, 1), width, writableWordRow(target, 0));
    std::copy_n(wordRow(target, height - 2), width, writableWordRow(target, height - 1));
}

void vx::kernels::combineResponses(const QImage& horizontal, const QImage& vertical, QImage& target)
{
    // What lies beyond the edges of the vertical response.
    const std::vector<QRgb> nothing(static_cast<std::size_t>(target.width()));
    const int bothWide = std::min(target.width(), vertical.width());
    const auto writeMagnitudes = [](const QRgb* across, const QRgb* down, int count,
                                     QRgb* magnitudes) {
        for (int x = 0; x < count; ++x) {
            const int squares = qRed(across[x]) * qRed(across[x]) + qRed(down[x]) * qRed(down[x]);
            const auto magnitude = static_cast<int>(std::sqrt(static_cast<double>(squares)));
            magnitudes[x] = greyWithAlphaOf(across[x], magnitude);
        }
    };
    for (int y = 0; y < target.height(); ++y) {
        const QRgb* const across = wordRow(horizontal, y);
        QRgb* const magnitudes = writableWordRow(target, y);
        const int inBoth = y < vertical.height() ? bothWide : 0;
        if (inBoth > 0)
            writeMagnitudes(across, wordRow(vertical, y), inBoth, magnitudes);
        writeMagnitudes(
            across + inBoth, nothing.data(), target.width() - inBoth, magnitudes + inBoth);
    }
}
