#include "VXSalienzClusterer.h"

#include "kernels/Cubes.h"
#include "kernels/image/ImageMemory.h"
#include "kernels/image/PixelWords.h"
#include "kernels/image/Wrapping.h"

namespace {

// A count of 0 gives 0; the one quotient that an int cannot hold wraps.
int divided(int length, int count)
{
    if (count == 0)
        return 0;
    return count == -1 ? vx::kernels::wrappingDifference(0, length) : length / count;
}

} // namespace

VXSalienzClusterer::VXSalienzClusterer() = default;

VXSalienzClusterer::~VXSalienzClusterer() = default;

void VXSalienzClusterer::setCountCubesH(int count) { cubesH = count; }

void VXSalienzClusterer::setCountCubesV(int count) { cubesV = count; }

int VXSalienzClusterer::countCubesH() const { return cubesH; }

int VXSalienzClusterer::countCubesV() const { return cubesV; }

QSize VXSalienzClusterer::countCubes() const { return QSize(cubesH, cubesV); }

QSize VXSalienzClusterer::cubeSize(const QSize& size) const
{
    return QSize(divided(size.height(), cubesV), divided(size.width(), cubesH));
}

int VXSalienzClusterer::totalSalience(const QImage& image) const
{
    return vx::kernels::totalRed(vx::kernels::toPixelWords(image));
}

QImage VXSalienzClusterer::cluster(const QImage& image) const
{
    const QImage words = vx::kernels::toPixelWords(image);
    QImage clustered = vx::kernels::uninitializedImage(image.size(), QImage::Format_ARGB32);
    const QSize cube(divided(image.width(), cubesV), divided(image.height(), cubesH));
    const int total = vx::kernels::totalRed(words);
    const int average = divided(divided(total, cubesV), cubesH);
    if (cube.isEmpty() || average == 0) {
        clustered.fill(vx::kernels::opaqueBlack);
        return clustered;
    }
    const int meanPixel = total / image.width() / image.height();
    vx::kernels::paintCubes(words, cube, { average, meanPixel }, clustered);
    return clustered;
}
