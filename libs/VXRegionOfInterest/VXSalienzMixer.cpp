#include "VXSalienzMixer.h"

#include "VXGaussROI.h"
#include "VXHistogramROI.h"
#include "VXSalienzAchanta.h"
#include "VXSobelROI.h"
#include "VXVeryImportantAreasROI.h"
#include "kernels/CentrePrior.h"
#include "kernels/blend/Blend.h"
#include "kernels/dilation/Dilation.h"
#include "kernels/image/GreyMap.h"
#include "kernels/image/ImageMemory.h"
#include "kernels/image/PixelWords.h"
#include "kernels/image/Wrapping.h"
#include "kernels/surround/SurroundContrast.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>
#include <vector>

namespace {

// The map of a method: a grey map, which is quick to write and to read, where kernels make it from the picture alone.
// Null where the map is black.
using MapOf = QImage (*)(VXAbstractROI& roi, const QImage& words);

QImage mapByEvaluating(VXAbstractROI& roi, const QImage& words) { return roi.evaluate(words); }

// Black for every image. The object is evaluated for a null image, which loads the vertical kernel as any other image
// would.
QImage edgeMap(VXAbstractROI& roi, const QImage& /*words*/) { return roi.evaluate(QImage()); }

QImage priorMap(VXAbstractROI& /*roi*/, const QImage& words)
{
    QImage prior = vx::kernels::uninitializedGreyMap(words.size());
    vx::kernels::centrePrior(prior);
    return prior;
}

QImage contrastMap(VXAbstractROI& /*roi*/, const QImage& words)
{
    QImage contrast = vx::kernels::uninitializedGreyMap(words.size());
    vx::kernels::surroundContrast(words, contrast);
    vx::kernels::dilateGrey(
        contrast, vx::kernels::contrastDilationSize / 2, vx::kernels::contrastDilationThreshold);
    return contrast;
}

// The image unchanged where the bound has a negative side or the image is null.
QImage scaledInto(const QSize& bound, const QImage& image)
{
    if (image.isNull() || !bound.isValid()) // Qt warns when it is asked to scale a null image
        return image;
    const QSize size = bound.isEmpty()
        ? QSize()
        : image.size().scaled(bound, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    return vx::kernels::held(
        image.scaled(bound, Qt::KeepAspectRatio, Qt::FastTransformation), size, image.depth());
}

template <typename Method> VXAbstractROI* created() { return new Method(); }

// What the mixer knows of a method; those that it does not create are injected.
struct KnownMethod {
    VXSalienzMethod name;
    int weight;
    VXAbstractROI* (*create)();
    MapOf mapOf;
};

// In the order in which they are created and in which analyze() runs them: the one that takes most memory
// runs before there are maps of others. A negative weight subtracts the map.
constexpr std::array<KnownMethod, 5> knownMethods { {
    { Achanta, 10, created<VXSalienzAchanta>, contrastMap },
    { Sobel, 20, created<VXSobelROI>, edgeMap },
    { Gauss, 2, created<VXGaussROI>, priorMap },
    { Histogram, -10, created<VXHistogramROI>, mapByEvaluating },
    { VeryImportantAreas, 20, nullptr, mapByEvaluating },
} };

int defaultWeightOf(VXSalienzMethod method)
{
    return std::find_if(knownMethods.begin(), knownMethods.end(),
        [method](const KnownMethod& known) { return known.name == method; })
        ->weight;
}

// Blends maps that are not needed afterwards. The first ARGB32 one is overwritten and returned, because
// page faults in fresh memory cost more than the arithmetic.
QImage blended(const QSize& size, std::vector<QImage> maps, const QList<int>& weights)
{
    const std::vector<vx::kernels::MapView> views(maps.begin(), maps.end());
    const auto reusable = std::find_if(maps.begin(), maps.end(),
        [](const QImage& map) { return map.format() == QImage::Format_ARGB32; });
    QImage result = reusable != maps.end()
        ? std::move(*reusable)
        : vx::kernels::uninitializedImage(size, QImage::Format_ARGB32);
    vx::kernels::blend(views, weights, result);
    return result;
}

} // namespace

VXSalienzMixer::VXSalienzMixer(const QSize& size)
    : workingSize(size)
{
    for (const KnownMethod& known : knownMethods) {
        if (known.create == nullptr)
            continue;
        methods.insert(known.name, known.create());
        methods.value(known.name)->setWeight(known.weight);
    }
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
    methods.value(VeryImportantAreas)->setWeight(defaultWeightOf(VeryImportantAreas));
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
    const bool isBlended = gatherWeights().size() > 1;
    const QImage words
        = isBlended ? vx::kernels::toPixelWords(scaledInto(workingSize, image)) : QImage();
    if (words.isNull()) {
        const QList<QImage> maps = gatherResults(image);
        return maps.isEmpty() ? vx::kernels::copyOf(image) : maps.first();
    }
    std::vector<QImage> maps;
    QList<int> weights;
    QList<int> weightsOfBlack; // they count in the divisor
    for (const KnownMethod& known : knownMethods) {
        if (!isMethodEnabled(known.name))
            continue;
        VXAbstractROI* const method = roiMethod(known.name);
        QImage map = known.mapOf(*method, words);
        (map.isNull() ? weightsOfBlack : weights).append(method->getWeight());
        if (!map.isNull())
            maps.push_back(std::move(map));
    }
    return blended(words.size(), std::move(maps), weights + weightsOfBlack);
}

QList<QImage> VXSalienzMixer::gatherResults(const QImage& image) const
{
    const QImage working = scaledInto(workingSize, image);
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

    QList<QImage> words;
    std::transform(maps.begin(), maps.end(), std::back_inserter(words), vx::kernels::toPixelWords);
    const std::vector<vx::kernels::MapView> views(words.begin(), words.end());
    QImage result = vx::kernels::uninitializedImage(maps.first().size(), QImage::Format_ARGB32);
    vx::kernels::blend(views, weights, result);
    return result;
}
