#include "VXSalienzMixer.h"

#include "VXGaussROI.h"
#include "VXHistogramROI.h"
#include "VXSalienzAchanta.h"
#include "VXSobelROI.h"
#include "VXVeryImportantAreasROI.h"
#include "kernels/Blend.h"
#include "kernels/PixelWords.h"
#include "kernels/Wrapping.h"

namespace {

constexpr int sobelWeight = 20;
constexpr int gaussWeight = 2;
constexpr int histogramWeight = -10; // the map is subtracted
constexpr int veryImportantAreasWeight = 20;
constexpr int achantaWeight = 10;

// Blends maps as they come. Only one of them is held at a time: to touch fresh memory costs more than
// the arithmetic on it.
class RunningBlend {
public:
    explicit RunningBlend(const QList<int>& mapWeights)
        : weights(mapWeights)
    {
    }

    void add(const QImage& map)
    {
        if (count == 0)
            first = map;
        else if (count == 1)
            begin();
        if (count > 0)
            vx::kernels::addToBlend(map, weights.value(count), sums);
        ++count;
    }

    // Null without a map; a single map as it is.
    QImage result()
    {
        if (count < 2)
            return first;
        vx::kernels::finishBlend(weights, sums);
        return sums;
    }

private:
    void begin()
    {
        sums = QImage(first.size(), QImage::Format_ARGB32);
        vx::kernels::beginBlend(first, weights.value(0), sums);
        first = QImage();
    }

    QList<int> weights;
    QImage first;
    QImage sums;
    int count = 0;
};

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
    RunningBlend blend(gatherWeights());
    forEachMap(image, [&blend](const QImage& map) { blend.add(map); });
    const QImage blended = blend.result();
    return blended.isNull() ? image : blended;
}

QList<QImage> VXSalienzMixer::gatherResults(const QImage& image) const
{
    QList<QImage> maps;
    forEachMap(image, [&maps](const QImage& map) { maps.append(map); });
    return maps;
}

void VXSalienzMixer::forEachMap(
    const QImage& image, const std::function<void(const QImage&)>& receive) const
{
    // Qt warns when it is asked to scale a null image.
    const bool scales = workingSize.isValid() && !image.isNull();
    const QImage working
        = scales ? image.scaled(workingSize, Qt::KeepAspectRatio, Qt::FastTransformation) : image;
    for (VXAbstractROI* const method : methods) {
        if (!method->isEnabled())
            continue;
        const QImage map = method->evaluate(working);
        if (!map.isNull())
            receive(map);
    }
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
    for (const QImage& map : maps)
        words.append(vx::kernels::toPixelWords(map));

    QImage blended(maps.first().size(), QImage::Format_ARGB32);
    vx::kernels::blend(words, weights, blended);
    return blended;
}
