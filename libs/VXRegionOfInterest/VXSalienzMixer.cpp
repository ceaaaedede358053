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
    const QList<QImage> maps = gatherResults(image);
    if (maps.isEmpty())
        return image;
    if (maps.size() == 1)
        return maps.first();
    return mix(maps, gatherWeights());
}

QList<QImage> VXSalienzMixer::gatherResults(const QImage& image) const
{
    // Qt warns when it is asked to scale a null image.
    const bool scales = workingSize.isValid() && !image.isNull();
    const QImage working
        = scales ? image.scaled(workingSize, Qt::KeepAspectRatio, Qt::FastTransformation) : image;

    QList<QImage> maps;
    for (VXAbstractROI* const method : methods) {
        if (!method->isEnabled())
            continue;
        const QImage map = method->evaluate(working);
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
    for (const QImage& map : maps)
        words.append(vx::kernels::toPixelWords(map));

    QImage blended(maps.first().size(), QImage::Format_ARGB32);
    vx::kernels::blend(words, weights, blended);
    return blended;
}
