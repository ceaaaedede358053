#include "VXSalienzMixer.h"

#include "VXGaussROI.h"
#include "VXHistogramROI.h"
#include "VXSalienzAchanta.h"
#include "VXSobelROI.h"
#include "VXVeryImportantAreasROI.h"
#include "kernels/Blend.h"
#include "kernels/BytePlane.h"
#include "kernels/FreshMemory.h"
#include "kernels/PixelWords.h"
#include "kernels/Scaling.h"
#include "kernels/Wrapping.h"

namespace {

constexpr int sobelWeight = 20;
constexpr int gaussWeight = 2;
constexpr int histogramWeight = -10; // the map is subtracted
constexpr int veryImportantAreasWeight = 20;
constexpr int achantaWeight = 10;

} // namespace

VXSalienzMixer::VXSalienzMixer(const QSize& size)
    : workingSize(size)
{
    methods.insert(Achanta, new VXSalienzAchanta());
    methods.insert(Sobel, new VXSobelROI());
    methods.insert(Gauss, new VXGaussROI());
    methods.insert(Histogram, new VXHistogramROI());

    methods.value(Sobel)->setWeight(sobelWeight);
    methods.value(Gauss)->setWeight(gaussWeight);
    methods.value(Histogram)->setWeight(histogramWeight);
    methods.value(Achanta)->setWeight(achantaWeight);
}

VXSalienzMixer::~VXSalienzMixer()
{
    qDeleteAll(methods);
    methods.clear();
}

void VXSalienzMixer::setMethodWeight(VXSalienzMethod method, int weight)
{
    if (VXAbstractROI* const roi = roiMethod(method))
        roi->setWeight(method == Histogram ? vx::kernels::wrappingDifference(0, weight) : weight);
}

void VXSalienzMixer::setMethodEnabled(VXSalienzMethod method, bool enabled)
{
    if (VXAbstractROI* const roi = roiMethod(method))
        roi->setEnabled(enabled);
}

bool VXSalienzMixer::isMethodEnabled(VXSalienzMethod method) const
{
    const VXAbstractROI* const roi = roiMethod(method);
    return roi != nullptr && roi->isEnabled();
}

VXAbstractROI* VXSalienzMixer::roiMethod(VXSalienzMethod method) const
{
    return methods.value(method);
}

VXHistogramROI* VXSalienzMixer::histogramROI() const
{
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-static-cast-downcast): the constructor put it there
    return static_cast<VXHistogramROI*>(roiMethod(Histogram));
}

void VXSalienzMixer::injectVeryImportantAreas(const QList<QRect>& areas, const QSize& size)
{
    methods.insert(VeryImportantAreas, new VXVeryImportantAreasROI(areas, size));
    methods.value(VeryImportantAreas)->setWeight(veryImportantAreasWeight);
}

void VXSalienzMixer::updateHistogramBinsChannel1(int bins) { histogramROI()->setBin1(bins); }

void VXSalienzMixer::updateHistogramBinsChannel2(int bins) { histogramROI()->setBin2(bins); }

void VXSalienzMixer::updateHistogramChiSquareThreshold(double threshold)
{
    histogramROI()->setChiSquareThreshold(threshold);
}

void VXSalienzMixer::updateHistogramHorizontalBlocks(int blocks)
{
    histogramROI()->setHorizontalBlocks(blocks);
}

void VXSalienzMixer::updateHistogramVerticalBlocks(int blocks)
{
    histogramROI()->setVerticalBlocks(blocks);
}

void VXSalienzMixer::updateHistogramMinWidth(double fraction)
{
    histogramROI()->setMinWidth(fraction);
}

void VXSalienzMixer::updateHistogramMinHeight(double fraction)
{
    histogramROI()->setMinHeight(fraction);
}

QImage VXSalienzMixer::analyze(const QImage& image)
{
    const QList<int> weights = gatherWeights();
    const QImage map = weights.size() > 1 ? blendedLevels(image, weights) : QImage();
    if (!map.isNull())
        return map;
    const QList<QImage> maps = gatherResults(image);
    return maps.size() > 1 ? mix(maps, weights) : maps.value(0, image);
}

// The same as mixing what gatherResults() returns, but no map is written only to be read again: to touch
// fresh memory costs more than the arithmetic on it. Null where a map would be.
QImage VXSalienzMixer::blendedLevels(const QImage& image, const QList<int>& weights) const
{
    const QImage working = vx::kernels::toPixelWords(vx::kernels::scaledInto(workingSize, image));
    QImage map = vx::kernels::uninitializedImage(working.size(), QImage::Format_ARGB32);
    if (map.isNull())
        return map;
    std::vector<vx::kernels::BytePlane> levels;
    for (const VXSalienzMethod method : methods.keys()) {
        if (isMethodEnabled(method))
            levels.push_back(levelsOf(method, working));
    }
    vx::kernels::blend(levels, weights, map);
    return map;
}

vx::kernels::BytePlane VXSalienzMixer::levelsOf(VXSalienzMethod method, const QImage& working) const
{
    // NOLINTBEGIN(cppcoreguidelines-pro-type-static-cast-downcast): as histogramROI()
    VXAbstractROI* const roi = roiMethod(method);
    switch (method) {
    case Sobel:
        return static_cast<VXSobelROI*>(roi)->levels(working);
    case Gauss:
        return static_cast<VXGaussROI*>(roi)->levels(working);
    case Histogram:
        return static_cast<VXHistogramROI*>(roi)->levels(working);
    case Achanta:
        return static_cast<VXSalienzAchanta*>(roi)->levels(working);
    case VeryImportantAreas:
        break;
    }
    // NOLINTEND(cppcoreguidelines-pro-type-static-cast-downcast)
    return vx::kernels::redPlaneOf(roi->evaluate(working));
}

QList<QImage> VXSalienzMixer::gatherResults(const QImage& image) const
{
    const QImage working = vx::kernels::scaledInto(workingSize, image);
    QList<QImage> maps;
    for (VXAbstractROI* const method : methods) {
        const QImage map = method->isEnabled() ? method->evaluate(working) : QImage();
        if (!map.isNull())
            maps.append(map);
    }
    return maps;
}

QList<int> VXSalienzMixer::gatherWeights() const
{
    QList<int> weights;
    for (VXAbstractROI* const method : methods) {
        if (method->isEnabled())
            weights.append(method->getWeight());
    }
    return weights;
}

QImage VXSalienzMixer::mix(const QList<QImage>& maps, const QList<int>& weights)
{
    if (maps.isEmpty())
        return QImage();

    std::vector<vx::kernels::BytePlane> levels;
    for (const QImage& map : maps)
        levels.push_back(vx::kernels::redPlaneOf(vx::kernels::toPixelWords(map)));
    QImage blended = vx::kernels::uninitializedImage(maps.first().size(), QImage::Format_ARGB32);
    vx::kernels::blend(levels, weights, blended);
    return blended;
}
