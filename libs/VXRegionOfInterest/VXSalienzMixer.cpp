#include "VXSalienzMixer.h"

#include "VXGaussROI.h"
#include "kernels/Blend.h"
#include "kernels/PixelWords.h"

namespace {

constexpr int gaussWeight = 2;

// -INT_MIN wraps back to INT_MIN.
int wrappingNegation(int number) { return static_cast<int>(0U - static_cast<unsigned>(number)); }

} // namespace

VXSalienzMixer::VXSalienzMixer(const QSize& size)
    : workingSize(size)
{
    methods.insert(Gauss, new VXGaussROI());

    methods.value(Gauss)->setWeight(gaussWeight);
}

VXSalienzMixer::~VXSalienzMixer()
{
    qDeleteAll(methods);
    methods.clear();
}

void VXSalienzMixer::setMethodWeight(VXSalienzMethod method, int weight)
{
    if (VXAbstractROI* const roi = roiMethod(method))
        roi->setWeight(method == Histogram ? wrappingNegation(weight) : weight);
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
