#include "image/ExactArithmetic.h"

#include "Cubes.h"

#include "image/PixelLoops.h"
#include "image/PixelWords.h"

#include <algorithm>

namespace {

using namespace vx::kernels;

// The measure of a cube. Sums of whole numbers are exact in any order, as those of doubles would not be.
RedMeasure measureCube(const QImage& words, const QRect& cube, int meanPixel, const RowLoops& loops)
{
    RedMeasure all {};
    for (int y = cube.top(); y <= cube.bottom(); ++y) {
        const RedMeasure row
            = loops.pixels.measureReds(wordRow(words, y) + cube.left(), cube.width(), meanPixel);
        all = { all.sum + row.sum, all.excess + row.excess, all.above + row.above };
    }
    return all;
}

quint32 boosted(const RedMeasure& measure, int meanPixel)
{
    const auto sum = static_cast<quint32>(measure.sum); // wraps
    // Without a pixel above the mean this is 0 / 0, which exceeds nothing.
    const double meanExcess
        = static_cast<double>(measure.excess) / static_cast<double>(measure.above);
    const double limit = 2.0 * meanPixel;
    if (!(meanExcess > limit))
        return sum;
    return static_cast<quint32>(static_cast<qint64>(meanExcess * sum));
}

int cubeLevel(
    const QImage& words, const QRect& cube, const CubeStandard& standard, const RowLoops& loops)
{
    // Zero only by wrapping: no cube is empty.
    const quint32 pixels = static_cast<quint32>(cube.width()) * static_cast<quint32>(cube.height());
    if (pixels * static_cast<quint32>(cube.height()) == 0)
        return 0;
    const RedMeasure measure = measureCube(words, cube, standard.meanPixel, loops);
    const quint32 salience = boosted(measure, standard.meanPixel);
    const quint32 level = salience * 128U / static_cast<quint32>(standard.averageCube);
    return static_cast<int>(std::min(level, 255U));
}

void paint(QImage& target, const QRect& cube, int level)
{
    for (int y = cube.top(); y <= cube.bottom(); ++y)
        std::fill_n(writableWordRow(target, y) + cube.left(), cube.width(), opaqueGrey(level));
}

} // namespace

int vx::kernels::totalRed(const QImage& words, const RowLoops& loops)
{
    quint64 total = 0;
    for (int y = 0; y < words.height(); ++y)
        total += loops.pixels.measureReds(wordRow(words, y), words.width(), 0).sum;
    return static_cast<int>(static_cast<quint32>(total));
}

void vx::kernels::paintCubes(const QImage& words, const QSize& cube, const CubeStandard& standard,
    QImage& target, const RowLoops& loops)
{
    for (int y = 0; y < words.height(); y += cube.height()) {
        for (int x = 0; x < words.width(); x += cube.width()) {
            const QRect cutOff = QRect(QPoint(x, y), cube) & words.rect();
            paint(target, cutOff, cubeLevel(words, cutOff, standard, loops));
        }
    }
}
