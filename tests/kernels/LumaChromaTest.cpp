#include "kernels/image/LumaChroma.h"
#include "kernels/image/PixelWords.h"

#include "kernels/histogram/HistogramLoops.h"
#include "support/TestImages.h"
#include "support/Variants.h"

namespace {

// Pixel by pixel, as the inline function packs.
QImage packedPlainly(const QImage& image)
{
    QImage packed = image;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            packed.setPixel(x, y, vx::kernels::packedLumaChromaOf(image.pixel(x, y)));
    }
    return packed;
}

// The two chroma bytes, as the index of a bin where every byte has a bin of its own.
QImage chromaBins(const QImage& image, const vx::kernels::RowLoops& loops)
{
    QImage bins(image.size(), QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y)
        loops.histogram.findChromaBins(vx::kernels::wordRow(image, y), image.width(), 256, 256,
            vx::kernels::writableWordRow(bins, y));
    return bins;
}

testing::AssertionResult packsLikePlain(const QImage& image)
{
    QImage bins = packedPlainly(image);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            bins.setPixel(x, y, bins.pixel(x, y) & 0x0000FFFFU);
    }
    const testing::AssertionResult binsAreRight = support::everyVariantGives(
        bins, [&](const vx::kernels::RowLoops& loops) { return chromaBins(image, loops); });
    if (!binsAreRight)
        return binsAreRight;
    return support::everyVariantGives(
        packedPlainly(image), [&](const vx::kernels::RowLoops& loops) {
            QImage target(image.size(), QImage::Format_ARGB32);
            vx::kernels::packLumaChroma(image, image.size(), target, loops);
            return target;
        });
}

} // namespace

TEST(LumaChroma, packsEveryWidthAroundAVector)
{
    for (int width = 1; width <= 70; ++width)
        ASSERT_TRUE(packsLikePlain(support::noise(width, 3, static_cast<unsigned>(width))));
}

TEST(LumaChroma, packsEveryColour)
{
    QImage colours(4096, 4096, QImage::Format_ARGB32);
    QRgb colour = 0xFF000000U;
    for (int y = 0; y < colours.height(); ++y) {
        for (int x = 0; x < colours.width(); ++x)
            colours.setPixel(x, y, colour++);
    }
    EXPECT_TRUE(packsLikePlain(colours));
}
