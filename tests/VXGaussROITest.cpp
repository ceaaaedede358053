#include <VXRegionOfInterest/VXGaussROI.h>

#include "kernels/CentrePrior.h"
#include "support/GreyImage.h"
#include "support/ImageAssert.h"
#include "support/MessageTrap.h"
#include "support/TestImages.h"

namespace {

QImage centrePriorOf(int width, int height)
{
    return VXGaussROI().evaluate(QImage(width, height, QImage::Format_ARGB32));
}

QImage plainCentrePriorOf(int width, int height)
{
    return support::greyImage(QSize(width, height),
        [](QImage& greyMap) { vx::kernels::reference::centrePrior(greyMap); });
}

} // namespace

TEST(VXGaussROI, isEnabledWithWeightZeroWhenFresh)
{
    VXGaussROI method;
    EXPECT_TRUE(method.isEnabled());
    EXPECT_EQ(method.getWeight(), 0);
}

TEST(VXGaussROI, givesTheSinglePixelOfA1x1ImageTheValue254)
{
    EXPECT_EQ(support::reds(centrePriorOf(1, 1)), (std::vector { 254 }));
}

TEST(VXGaussROI, reaches255OnlyAtTheLowerRightPixelOfA2x2Image)
{
    EXPECT_EQ(support::reds(centrePriorOf(2, 2)), (std::vector { 254, 254, 254, 255 }));
}

TEST(VXGaussROI, reaches255NowhereInA3x3Image)
{
    EXPECT_EQ(support::reds(centrePriorOf(3, 3)), std::vector(9, 254));
}

TEST(VXGaussROI, peaksAtHalfTheSizeOfAnEvenImage)
{
    const QImage map = centrePriorOf(64, 48);
    for (int y = 0; y < 48; ++y) {
        for (int x = 0; x < 64; ++x)
            EXPECT_EQ(qRed(map.pixel(x, y)) == 255, x == 32 && y == 24) << x << ", " << y;
    }
}

TEST(VXGaussROI, falls130PixelsFromTheCentreTo154AndAt260To34)
{
    const QImage map = centrePriorOf(600, 600);
    for (const auto& [distance, value] : { std::pair(130, 154), std::pair(260, 34) }) {
        EXPECT_EQ(qRed(map.pixel(300 + distance, 300)), value);
        EXPECT_EQ(qRed(map.pixel(300 - distance, 300)), value);
        EXPECT_EQ(qRed(map.pixel(300, 300 + distance)), value);
        EXPECT_EQ(qRed(map.pixel(300, 300 - distance)), value);
    }
}

TEST(VXGaussROI, keepsItsWidthInPixels)
{
    EXPECT_EQ(qRed(centrePriorOf(640, 480).pixel(0, 0)), 2); // 400 pixels from the centre
    EXPECT_EQ(qRed(centrePriorOf(64, 48).pixel(0, 0)), 243); // 40 pixels
}

TEST(VXGaussROI, writesOpaqueGreyPixels)
{
    EXPECT_TRUE(support::isOpaqueGrey(centrePriorOf(640, 480)));
}

TEST(VXGaussROI, looksAtTheSizeOnly)
{
    const QImage expected = centrePriorOf(31, 17);
    for (const QImage::Format format : { QImage::Format_RGB32, QImage::Format_Mono,
             QImage::Format_Grayscale8, QImage::Format_RGBA64 }) {
        const QImage image = support::noise(31, 17, 5).convertToFormat(format);
        EXPECT_TRUE(support::sameImage(expected, VXGaussROI().evaluate(image)));
    }
}

TEST(VXGaussROI, returnsANullMapForANullOrEmptyImageWithoutAMessage)
{
    const support::MessageTrap trap;
    EXPECT_TRUE(VXGaussROI().evaluate(QImage()).isNull());
    EXPECT_TRUE(VXGaussROI().evaluate(QImage(0, 3, QImage::Format_ARGB32)).isNull());
    EXPECT_TRUE(VXGaussROI().evaluate(QImage(3, 0, QImage::Format_RGB32)).isNull());
    EXPECT_TRUE(trap.texts().isEmpty());
}

TEST(VXGaussROI, keepsSwitchAndWeightWhenCopied)
{
    VXGaussROI original;
    original.setWeight(7);
    original.setEnabled(false);
    VXGaussROI copy(original);
    EXPECT_EQ(copy.getWeight(), 7);
    EXPECT_FALSE(copy.isEnabled());
}

TEST(VXGaussROI, equalsTheFormulaForEverySizeUpTo70)
{
    for (int height = 1; height <= 70; ++height) {
        for (int width = 1; width <= 70; ++width)
            ASSERT_TRUE(support::sameImage(
                plainCentrePriorOf(width, height), centrePriorOf(width, height)));
    }
}

TEST(VXGaussROI, equalsTheFormulaForLargeAndExtremeSizes)
{
    const std::vector<QSize> sizes { { 640, 480 }, { 641, 479 }, { 480, 640 }, { 1920, 1080 },
        { 3001, 2003 }, { 1, 20000 }, { 20000, 1 }, { 32768, 2 } };
    for (const QSize& size : sizes) {
        EXPECT_TRUE(support::sameImage(plainCentrePriorOf(size.width(), size.height()),
            centrePriorOf(size.width(), size.height())));
    }
}
