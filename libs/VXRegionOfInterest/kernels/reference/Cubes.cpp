#include "../image/ExactArithmetic.h"

#include "../Cubes.h"

#include "../image/PixelWords.h"

namespace {

using namespace vx::kernels;

template <typename Visit>
void visitCube(const QImage& words, const QPoint& origin, const QSize& cube, Visit visit)
{
    for (int i = 0; i < cube.height() && origin.y() + i < words.height(); ++i) {
        for (int j = 0; j < cube.width() && origin.x() + j < words.width(); ++j)
            visit(origin.x() + j, origin.y() + i, j == 0);
    }
}

void paintCube(const QImage& words, const QPoint& origin, const QSize& cube,
    const CubeStandard& standard, QImage& target)
{
    const double mean = standard.meanPixel;
    double excess = 0;
    double above = 0;
    quint32 sum = 0;
    quint32 rows = 0;
    quint32 pixels = 0;
    visitCube(words, origin, cube, [&](int x, int y, bool isNewRow) {
        const int red = qRed(wordRow(words, y)[x]);
        if (red > mean) {
            excess += red - mean;
            above += 1.0;
        }
        sum += static_cast<quint32>(red);
        rows += isNewRow ? 1 : 0;
        ++pixels;
    });

    quint32 level = 0;
    if (pixels * rows != 0) {
        const double meanExcess = excess / above;
        if (meanExcess > mean + mean)
            sum = static_cast<quint32>(static_cast<qint64>(meanExcess * sum) & 0xFFFFFFFF);
        level = (sum * 128U) / static_cast<quint32>(standard.averageCube);
        if (level >= 255)
            level = 255;
    }
    visitCube(words, origin, cube, [&](int x, int y, bool /*isNewRow*/) {
        writableWordRow(target, y)[x] = opaqueGrey(static_cast<int>(level));
    });
}

} // namespace

int vx::kernels::reference::totalRed(const QImage& words)
{
    qint32 total = 0;
    for (int y = 0; y < words.height(); ++y) {
        for (int x = 0; x < words.width(); ++x)
            total = static_cast<qint32>(
                static_cast<quint32>(total) + static_cast<quint32>(qRed(wordRow(words, y)[x])));
    }
    return total;
}

void vx::kernels::reference::paintCubes(
    const QImage& words, const QSize& cube, const CubeStandard& standard, QImage& target)
{
    for (int y = 0; y < words.height(); y += cube.height()) {
        for (int x = 0; x < words.width(); x += cube.width())
            paintCube(words, QPoint(x, y), cube, standard, target);
    }
}
