#include "Benchmarks.h"

#include "LiteralAnalysis.h"
#include "Subject.h"

#include <VXRegionOfInterest/VXBackgroundROI.h>
#include <VXRegionOfInterest/VXGaussROI.h>
#include <VXRegionOfInterest/VXGaussianBlur.h>
#include <VXRegionOfInterest/VXHistogramROI.h>
#include <VXRegionOfInterest/VXMaxFilter.h>
#include <VXRegionOfInterest/VXSalienzAchanta.h>
#include <VXRegionOfInterest/VXSalienzClusterer.h>
#include <VXRegionOfInterest/VXSalienzMaximizerHorizontal.h>
#include <VXRegionOfInterest/VXSalienzMaximizerVertical.h>
#include <VXRegionOfInterest/VXSalienzMixer.h>
#include <VXRegionOfInterest/VXSobelROI.h>
#include <VXRegionOfInterest/VXVeryImportantAreasROI.h>

#include "kernels/CentrePrior.h"
#include "kernels/Cubes.h"
#include "kernels/GaussianBlur.h"
#include "kernels/background/BackgroundMap.h"
#include "kernels/blend/Blend.h"
#include "kernels/dilation/Dilation.h"
#include "kernels/edges/EdgeResponse.h"
#include "kernels/image/RedSums.h"
#include "support/GreyImage.h"
#include "support/PlainHistogramROI.h"

namespace {

using namespace benchmarks;
namespace reference = vx::kernels::reference;

void registerMethods()
{
    registerEverywhere(ImageSubject { "VXSalienzAchanta",
        [](const QImage& image) { return VXSalienzAchanta().evaluate(image); }, literalContrast });
    registerEverywhere(ImageSubject { "VXSobelROI",
        [](const QImage& image) { return VXSobelROI().evaluate(image); }, literalEdges });
    registerEverywhere(ImageSubject { "VXGaussROI",
        [](const QImage& image) { return VXGaussROI().evaluate(image); },
        [](const QImage& image) {
            return support::greyImage(
                image.size(), [](QImage& levels) { reference::centrePrior(levels); });
        } });
    registerEverywhere(ImageSubject { "VXBackgroundROI",
        [](const QImage& image) { return VXBackgroundROI().evaluate(image); },
        [](const QImage& image) {
            QImage map = mapFor(image);
            reference::writeBackgroundMap(image, map);
            return map;
        } });
    registerEverywhere(ImageSubject { "VXHistogramROI",
        [](const QImage& image) { return VXHistogramROI().evaluate(image); },
        [](const QImage& image) { return support::plainHistogramMap(image, {}); } });
    // Drawn by QPainter, the plain way and the only one.
    const auto markedAreas = [](const QImage& image) {
        const QRect area(image.width() / 4, image.height() / 3, 50, 40);
        return VXVeryImportantAreasROI({ area }, image.size()).evaluate(image);
    };
    registerEverywhere(ImageSubject { "VXVeryImportantAreasROI", markedAreas, markedAreas, 0 });
}

void registerFilters()
{
    registerEverywhere(ImageSubject { "VXGaussianBlur",
        [](const QImage& image) { return VXGaussianBlur(3, 2.6).evaluate(image); },
        [](const QImage& image) {
            QImage blurred = mapFor(image);
            reference::gaussianBlur(image, VXGaussianBlur::createGaussianKernel(3, 2.6), blurred);
            return blurred;
        } });
    registerEverywhere(ImageSubject { "VXMaxFilter",
        [](const QImage& image) { return VXMaxFilter(90, 150).evaluate(image); },
        [](const QImage& image) { return reference::dilate(image, 45, 150); } });
    registerEverywhere(ImageSubject { "VXSobelROI::convolute",
        [](const QImage& image) { return VXSobelROI().convolute(image); },
        [](const QImage& image) {
            QImage response = mapFor(image);
            reference::respondToKernel(image, { 1, 2, 1, 0, 0, 0, -1, -2, -1 }, 12, response);
            return response;
        } });
    registerEverywhere(ImageSubject { "VXSobelROI::combine",
        [](const QImage& image) { return VXSobelROI().combine(image, image); },
        [](const QImage& image) {
            QImage combined(image.size(), image.format());
            reference::combineResponses(image, image, combined);
            return combined;
        } });
}

void registerMixerAndReaders()
{
    registerEverywhere(ImageSubject { "VXSalienzMixer::analyze",
        [](const QImage& image) { return VXSalienzMixer(QSize()).analyze(image); },
        literalAnalysis });
    registerEverywhere(ImageSubject { "VXSalienzMixer::mix",
        [](const QImage& image) {
            return VXSalienzMixer(QSize()).mix({ image, image, image, image }, { 20, 2, -10, 10 });
        },
        [](const QImage& image) {
            QImage blended = mapFor(image);
            reference::blend({ image, image, image, image }, { 20, 2, -10, 10 }, blended);
            return blended;
        } });
    registerEverywhere(ImageSubject { "VXSalienzClusterer",
        [](const QImage& image) { return VXSalienzClusterer().cluster(image); },
        [](const QImage& image) {
            QImage clustered = mapFor(image);
            const int total = reference::totalRed(image);
            const vx::kernels::CubeStandard standard { total / 10 / 10,
                total / image.width() / image.height() };
            reference::paintCubes(
                image, QSize(image.width() / 10, image.height() / 10), standard, clustered);
            return clustered;
        } });
    registerEverywhere(Subject<QList<long long>> { "VXSalienzMaximizerHorizontal",
        [](const QImage& image) { return VXSalienzMaximizerHorizontal().sums(image); },
        reference::columnRedSums });
    registerEverywhere(Subject<QList<long long>> { "VXSalienzMaximizerVertical",
        [](const QImage& image) { return VXSalienzMaximizerVertical().sums(image); },
        reference::rowRedSums });
}

} // namespace

void benchmarks::registerClasses()
{
    registerMethods();
    registerFilters();
    registerMixerAndReaders();
}
