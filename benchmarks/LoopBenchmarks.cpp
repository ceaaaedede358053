#include "Benchmarks.h"

#include "Subject.h"

#include <VXRegionOfInterest/VXMaxFilter.h>

#include "kernels/dilation/Dilation.h"
#include "kernels/histogram/HistogramLoops.h"
#include "kernels/image/LumaChroma.h"
#include "kernels/image/PixelWords.h"
#include "kernels/surround/SurroundContrast.h"
#include "support/GreyImage.h"

namespace {

using namespace benchmarks;
using vx::kernels::RowLoops;
namespace reference = vx::kernels::reference;

ImageSubject surroundContrastWith(const RowLoops& loops)
{
    return { std::string("loops for ") + loops.name + ": surround contrast",
        [&loops](const QImage& image) {
            return support::greyImage(image.size(),
                [&](QImage& levels) { vx::kernels::surroundContrast(image, levels, loops); });
        },
        [](const QImage& image) {
            return support::greyImage(
                image.size(), [&](QImage& levels) { reference::surroundContrast(image, levels); });
        } };
}

ImageSubject maxFilterWith(const RowLoops& loops)
{
    return { std::string("loops for ") + loops.name + ": maximum filter, grey",
        [&loops](const QImage& image) { return vx::kernels::dilate(image, 45, 150, loops); },
        [](const QImage& image) { return reference::dilate(image, 45, 150); } };
}

QImage plainChromaBins(const QImage& image)
{
    QImage bins = mapFor(image);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            bins.setPixel(x, y, vx::kernels::packedLumaChromaOf(image.pixel(x, y)) & 0x0000FFFFU);
    }
    return bins;
}

ImageSubject chromaBinsWith(const RowLoops& loops)
{
    return { std::string("loops for ") + loops.name + ": bins of chroma",
        [&loops](const QImage& image) {
            QImage bins = mapFor(image);
            for (int y = 0; y < image.height(); ++y)
                loops.histogram.findChromaBins(vx::kernels::wordRow(image, y), image.width(), 256,
                    256, vx::kernels::writableWordRow(bins, y));
            return bins;
        },
        plainChromaBins };
}

// The kernels that take longest, with each variant of the loops.
void registerVariants()
{
    for (const RowLoops* const loops : vx::kernels::availableRowLoops()) {
        for (const QSize& size : { QSize(320, 240), workingSize, QSize(1920, 1280) }) {
            registerPair(surroundContrastWith(*loops), Kind::Photo, size);
            registerPair(maxFilterWith(*loops), Kind::Bright, size);
            registerPair(chromaBinsWith(*loops), Kind::Photo, size);
        }
    }
}

// The arm and the content that the maximum filter is compared by.
void registerMaximumFilterExtremes()
{
    for (const QSize& size : { QSize(320, 240), workingSize, QSize(1920, 1280) }) {
        for (const int arm : { 3, 45, 1000 }) {
            const ImageSubject filter { "VXMaxFilter with arms of " + std::to_string(arm),
                [arm](const QImage& image) { return VXMaxFilter(2 * arm, 150).evaluate(image); },
                [arm](const QImage& image) { return reference::dilate(image, arm, 150); }, 0 };
            registerPair(filter, Kind::Bright, size);
            registerPair(filter, Kind::Dark, size);
        }
    }
}

} // namespace

void benchmarks::registerLoops()
{
    registerVariants();
    registerMaximumFilterExtremes();
}
