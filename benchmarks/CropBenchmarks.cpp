#include "Benchmarks.h"

#include "LiteralAnalysis.h"
#include "Subject.h"

#include <VXCrop/VXCrop.h>
#include <VXRegionOfInterest/VXSalienzMaximizerHorizontal.h>
#include <VXRegionOfInterest/VXSalienzMixer.h>

#include "kernels/background/BackgroundMap.h"

namespace reference = vx::kernels::reference;

void benchmarks::registerCrops()
{
    const auto startOfSquare = [](const QImage& map) {
        return VXSalienzMaximizerHorizontal().startOfBestRange(map, map.height());
    };
    registerEverywhere(Subject<int> { "crop decision",
        [=](const QImage& image) {
            return startOfSquare(VXSalienzMixer(workingSize).analyze(image));
        },
        [=](const QImage& image) {
            return startOfSquare(literalAnalysis(
                image.scaled(workingSize, Qt::KeepAspectRatio, Qt::FastTransformation)));
        } });
    registerEverywhere(Subject<QRect> { "VXCrop",
        [](const QImage& image) { return VXCrop(image).window(QSize(1, 1)).window; },
        [](const QImage& image) {
            const QImage working = VXCrop::workingImage(image);
            QImage map = mapFor(working);
            reference::writeBackgroundMap(working, map);
            return VXCrop::fromMap(map, image.size()).window(QSize(1, 1)).window;
        } });
}
