#include "ExactArithmetic.h"

#include "Cubes.h"

#include "PixelWords.h"

#include <algorithm>

namespace {

using namespace vx::kernels;

// What a cube holds. Sums of whole numbers are exact in any order, so none is kept in double.
struct CubeSums {
    quint32 red = 0; // wraps
    qint64 excess = 0; // over the mean pixel, of the pixels above it
    qint64 pixelsAbove = 0;
};

CubeSums sumsOf(const QImage& words, const QRect& cube, int meanPixel)
{
    CubeSums sums;
    for (int y = cube.top(); y <= cube.bottom(); ++y) {
        const QRgb* const row = wordRow(words, y);
        for (int x = cube.left(); x <= cube.right(); ++x) {
            const int red = qRed(row[x]);
            sums.red += static_cast<quint32>(red);
            sums.excess += red > meanPixel ? red - meanPixel : 0;
            sums.pixelsAbove += red > meanPixel ? 1 : 0;
        }
    }
    return sums;
}

quint32 boosted(const CubeSums& sums, int meanPixel)
{
    // Without a pixel above the mean this is 0 / 0, which exceeds nothing.
    const double meanExcess
        = static_cast<double>(sums.excess) / static_cast<double>(sums.pixelsAbove);
    const double limit = 2.0 * meanPixel;
    if (!(meanExcess > limit))
        return sums.red;
    return static_cast<quint32>(static_cast<qint64>(meanExcess * sums.red));
}

int levelOf(const QImage& words, const QRect& cube, const CubeStandard& standard)
{
    // Zero only by wrapping: no cube is empty.
    const quint32 pixels = static_cast<quint32>(cube.width()) * static_cast<quint32>(cube.height());
    if (pixels * static_cast<quint32>(cube.height()) == 0)
        return 0;
    const quint32 salience = boosted(sumsOf(words, cube, standard.meanPixel), standard.meanPixel);
    const quint32 level = salience * 128U / static_cast<quint32>(standard.averageCube);
    return static_cast<int>(std::min(level, 255U));
}

void paint(QImage& target, const QRect& cube, int level)
{
    for (int y = cube.top(); y <= cube.bottom(); ++y)
        std::fill_n(writableWordRow(target, y) + cube.left(), cube.width(), opaqueGrey(level));
}

} // namespace

int vx::kernels::totalRed(const QImage& words)
{
    quint32 total = 0;
    for (int y = 0; y < words.height(); ++y) {
        const QRgb* const row = wordRow(words, y);
        for (int x = 0; x < words.width(); ++x)
            total += row[x] >> 16 & 0xFFU;
    }
    return static_cast<int>(total);
}

void vx::kernels::paintCubes(
    const QImage& words, const QSize& cube, const CubeStandard& standard, QImage& target)
{
    for (int y = 0; y < words.height(); y += cube.height()) {
        for (int x = 0; x < words.width(); x += cube.width()) {
            const QRect cutOff = QRect(QPoint(x, y), cube) & words.rect();
            paint(target, cutOff, levelOf(words, cutOff, standard));
        }
    }
}
