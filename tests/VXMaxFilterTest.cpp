#include <VXRegionOfInterest/VXMaxFilter.h>

#include "kernels/dilation/Dilation.h"
#include "support/GreyImage.h"
#include "support/ImageAssert.h"
#include "support/MessageTrap.h"
#include "support/Random.h"
#include "support/TestImages.h"
#include "support/Variants.h"

#include <QColorSpace>

#include <algorithm>
#include <climits>

namespace {

testing::AssertionResult equalsPlain(const QImage& source, int size, int threshold)
{
    // Arms beyond the image reach no further.
    const int reach = std::max(source.width(), source.height());
    const int arm = std::clamp(size / 2, -1, reach);
    const QImage plain = vx::kernels::reference::dilate(source, arm, threshold);
    const testing::AssertionResult variants
        = support::everyVariantGives(plain, [&](const vx::kernels::RowLoops& loops) {
              return vx::kernels::dilate(source, size / 2, threshold, loops);
          });
    return variants ? support::sameImage(plain, VXMaxFilter(size, threshold).evaluate(source))
                    : variants;
}

QImage black(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(Qt::black);
    return image;
}

} // namespace

TEST(VXMaxFilter, isEnabledWithWeightZeroWhenFresh)
{
    VXMaxFilter filter(7, 50);
    EXPECT_TRUE(filter.isEnabled());
    EXPECT_EQ(filter.getWeight(), 0);
}

TEST(VXMaxFilter, turnsABrightPixelIntoAPlusThatCarriesItsFullValue)
{
    const QRgb bright = qRgba(200, 17, 99, 128);
    QImage image = black(11, 11);
    image.setPixel(5, 5, bright);
    const QImage filtered = VXMaxFilter(7, 50).evaluate(image);
    for (int y = 0; y < 11; ++y) {
        for (int x = 0; x < 11; ++x) {
            const bool isInPlus
                = (x == 5 && std::abs(y - 5) <= 3) || (y == 5 && std::abs(x - 5) <= 3);
            EXPECT_EQ(filtered.pixel(x, y), isInPlus ? bright : 0xFF000000U) << x << ", " << y;
        }
    }
}

TEST(VXMaxFilter, doesNotSpreadAPixelAtTheThreshold)
{
    QImage image = black(9, 9);
    image.setPixel(4, 4, qRgb(50, 255, 255));
    EXPECT_TRUE(support::sameImage(image, VXMaxFilter(7, 50).evaluate(image)));
    image.setPixel(4, 4, qRgb(51, 0, 0));
    EXPECT_FALSE(support::sameImage(image, VXMaxFilter(7, 50).evaluate(image)));
}

TEST(VXMaxFilter, changesNothingForSizesFromMinusOneToOneAndBelow)
{
    const QImage image = support::noise(9, 9, 1);
    for (const int size : { INT_MIN, -7, -2, -1, 0, 1 })
        EXPECT_TRUE(support::sameImage(image, VXMaxFilter(size, 50).evaluate(image))) << size;
}

TEST(VXMaxFilter, reachesTheWholeRowAndColumnForTheLargestSize)
{
    QImage image = black(30, 20);
    image.setPixel(29, 0, qRgb(200, 1, 2));
    const QImage filtered = VXMaxFilter(INT_MAX, 50).evaluate(image);
    for (int x = 0; x < 30; ++x)
        EXPECT_EQ(filtered.pixel(x, 0), qRgb(200, 1, 2));
    for (int y = 0; y < 20; ++y)
        EXPECT_EQ(filtered.pixel(29, y), qRgb(200, 1, 2));
    EXPECT_EQ(filtered.pixel(28, 1), 0xFF000000U);
}

TEST(VXMaxFilter, firstScannedOfEquallyBrightPixelsWins)
{
    const QRgb first = qRgb(200, 1, 1);
    const QRgb second = qRgb(200, 2, 2);
    QImage row = black(5, 1);
    row.setPixel(0, 0, first);
    row.setPixel(4, 0, second);
    EXPECT_EQ(VXMaxFilter(5, 50).evaluate(row).pixel(2, 0), first);

    QImage corner = black(3, 3); // (1, 1) is reached by the column above it and by its own row
    corner.setPixel(1, 0, first);
    corner.setPixel(0, 1, second);
    EXPECT_EQ(VXMaxFilter(3, 50).evaluate(corner).pixel(1, 1), first);

    QImage below = black(3, 3); // and here by its own row and the column below it
    below.setPixel(2, 1, first);
    below.setPixel(1, 2, second);
    EXPECT_EQ(VXMaxFilter(3, 50).evaluate(below).pixel(1, 1), first);
}

TEST(VXMaxFilter, firstScannedWinsBeyondEightMillionPixelsAsWell)
{
    constexpr int middle = (1 << 23) + 5;
    const QRgb earlier = qRgb(200, 1, 2);
    const QRgb later = qRgb(200, 3, 4);
    QImage image(middle + 4, 1, QImage::Format_RGB32);
    image.fill(Qt::black);
    image.setPixel(middle - 1, 0, earlier);
    image.setPixel(middle + 1, 0, later);
    const QImage spread = VXMaxFilter(2, 150).evaluate(image);
    EXPECT_EQ(spread.pixel(middle - 3, 0), image.pixel(middle - 3, 0));
    EXPECT_EQ(spread.pixel(middle - 2, 0), earlier);
    EXPECT_EQ(spread.pixel(middle, 0), earlier);
    EXPECT_EQ(spread.pixel(middle + 2, 0), later);
    EXPECT_EQ(spread.pixel(middle + 3, 0), image.pixel(middle + 3, 0));
}

// Wider than an image of 32 bits per pixel can be.
TEST(VXMaxFilter, spreadsInTheWidestImagesToo)
{
    constexpr int width = 70000000;
    QImage image(width, 1, QImage::Format_RGB16);
    image.fill(Qt::black);
    image.setPixel(width - 2, 0, qRgb(255, 0, 0));
    const QImage filtered = VXMaxFilter(3, 50).evaluate(image);
    EXPECT_EQ(filtered.pixel(width - 4, 0), qRgb(0, 0, 0));
    for (int x = width - 3; x < width; ++x)
        EXPECT_EQ(filtered.pixel(x, 0), qRgb(255, 0, 0));
}

TEST(VXMaxFilter, aTieNeverReplaces)
{
    QImage image = black(3, 1);
    image.setPixel(0, 0, qRgb(200, 1, 1));
    image.setPixel(1, 0, qRgb(200, 2, 2));
    EXPECT_TRUE(support::sameImage(
        VXMaxFilter(3, 50).evaluate(image).copy(0, 0, 2, 1), image.copy(0, 0, 2, 1)));
}

TEST(VXMaxFilter, spreadsFromTheSourceAndNotFromWhatWasSpread)
{
    QImage image = black(20, 1);
    image.setPixel(0, 0, qRgb(255, 255, 255));
    const QImage filtered = VXMaxFilter(7, 50).evaluate(image);
    EXPECT_EQ(filtered.pixel(3, 0), 0xFFFFFFFFU);
    EXPECT_EQ(filtered.pixel(4, 0), 0xFF000000U);
}

TEST(VXMaxFilter, spreadsNothingInPaletteAndMonoFormatsAndSaysNothing)
{
    const support::MessageTrap trap;
    for (const QImage::Format format : { QImage::Format_Mono, QImage::Format_MonoLSB,
             QImage::Format_Indexed8, QImage::Format_Alpha8 }) {
        const QImage image = support::noise(15, 9, 2).convertToFormat(format);
        EXPECT_TRUE(support::sameImage(image, VXMaxFilter(7, -1).evaluate(image)));
    }
    EXPECT_TRUE(trap.texts().isEmpty());
}

TEST(VXMaxFilter, returnsANullImageForANullImageWithoutAMessage)
{
    const support::MessageTrap trap;
    EXPECT_TRUE(VXMaxFilter(7, 50).evaluate(QImage()).isNull());
    EXPECT_TRUE(VXMaxFilter(7, 50).evaluate(QImage(4, 0, QImage::Format_RGB888)).isNull());
    EXPECT_TRUE(trap.texts().isEmpty());
}

TEST(VXMaxFilter, leavesImagesAloneThatShareTheData)
{
    const QImage image = support::noise(20, 20, 3);
    const QImage untouched = image.copy();
    VXMaxFilter(7, 50).evaluate(image);
    EXPECT_TRUE(support::sameImage(untouched, image));
}

TEST(VXMaxFilter, equalsThePlainFilterForEverySize)
{
    support::Random random(7);
    for (int height = 1; height <= 40; ++height) {
        for (int width = 1; width <= 40; ++width) {
            const int size = random.below(60);
            const int threshold = random.below(270) - 10;
            for (const QImage& image : support::variedImages(width, height, random.word())) {
                ASSERT_TRUE(equalsPlain(image, size, threshold))
                    << width << " x " << height << ", size " << size << ", threshold " << threshold;
            }
        }
    }
}

TEST(VXMaxFilter, equalsThePlainFilterForGreyMaps)
{
    support::Random random(8);
    for (int round = 0; round < 150; ++round) {
        const int width = 1 + random.below(150);
        const int height = 1 + random.below(150);
        QImage map(width, height, QImage::Format_ARGB32);
        const int step = 1 + random.below(80);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const int level = random.below(256) / step * step;
                map.setPixel(x, y, qRgb(level, level, level));
            }
        }
        ASSERT_TRUE(equalsPlain(map, random.below(120), random.below(256))) << round;
    }
}

TEST(VXMaxFilter, doesNotSpreadAGreyPixelAtTheThreshold)
{
    QImage map = black(9, 9);
    map.setPixel(4, 4, qRgb(50, 50, 50));
    EXPECT_TRUE(support::sameImage(map, VXMaxFilter(7, 50).evaluate(map)));
    EXPECT_TRUE(equalsPlain(map, 7, 50));
    EXPECT_TRUE(equalsPlain(map, 7, 49));
}

TEST(VXMaxFilter, equalsThePlainFilterForArmsAroundTheSidesOfAGreyMap)
{
    support::Random random(12);
    for (int side = 1; side <= 12; ++side) {
        QImage map = black(side, 13 - side);
        for (int y = 0; y < map.height(); ++y) {
            for (int x = 0; x < map.width(); ++x) {
                const int level = random.below(256);
                map.setPixel(x, y, qRgb(level, level, level));
            }
        }
        for (int arm = 1; arm <= 14; ++arm)
            ASSERT_TRUE(equalsPlain(map, 2 * arm, 20)) << side << ", arm " << arm;
    }
}

TEST(VXMaxFilter, equalsThePlainFilterInEveryFormat)
{
    support::Random random(9);
    const support::MessageTrap trap;
    for (int format = 1; format < QImage::NImageFormats; ++format) {
        for (const QImage& image : support::variedImages(37, 23, random.word())) {
            const QImage source = image.convertToFormat(static_cast<QImage::Format>(format));
            for (const int size : { 3, 12, 200 })
                ASSERT_TRUE(equalsPlain(source, size, random.below(256) - 1))
                    << "format " << format << ", size " << size;
        }
    }
    EXPECT_TRUE(trap.texts().isEmpty());
}

TEST(VXMaxFilter, equalsThePlainFilterForWordsThatNoConversionMakes)
{
    // RGB32 with any high byte, and premultiplied colours above their alpha, which with few bits of
    // alpha read differently once they were set.
    for (const QImage::Format format : { QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied,
             QImage::Format_A2BGR30_Premultiplied, QImage::Format_A2RGB30_Premultiplied }) {
        QImage image = support::noise(40, 30, 10);
        ASSERT_TRUE(image.reinterpretAsFormat(format));
        for (const int threshold : { -1, 100, 250 })
            EXPECT_TRUE(equalsPlain(image, 9, threshold));
    }
}

TEST(VXMaxFilter, equalsThePlainFilterOverPaddedRows)
{
    const support::PaddedImage padded(support::noise(70, 66, 11));
    EXPECT_TRUE(equalsPlain(padded.image(), 21, 130));
    EXPECT_TRUE(padded.paddingIsIntact());
}

TEST(VXMaxFilter, equalsThePlainFilterForLargeImages)
{
    EXPECT_TRUE(equalsPlain(support::noise(640, 480, 12), 90, 250));
    EXPECT_TRUE(equalsPlain(support::noise(640, 480, 13), 90, 150));
    EXPECT_TRUE(equalsPlain(support::noise(1, 5000, 14), 1000, 150));
    EXPECT_TRUE(equalsPlain(support::noise(5000, 1, 15), 1000, 150));
}

TEST(VXMaxFilter, equalsThePlainFilterForAlmostOneColour)
{
    for (const QRgb colour : { qRgb(0, 0, 0), qRgb(255, 255, 255), qRgba(200, 3, 4, 5) }) {
        QImage image(9, 5, QImage::Format_ARGB32);
        image.fill(colour);
        EXPECT_TRUE(equalsPlain(image, 7, 50));
        for (const QPoint& position : { QPoint(0, 0), QPoint(8, 4), QPoint(4, 2), QPoint(8, 0) }) {
            QImage other = image;
            other.setPixel(position, colour ^ 0x00400000U);
            EXPECT_TRUE(equalsPlain(other, 7, 50));
        }
    }
}

// Those that a copy has, whichever way the pixels are spread.
TEST(VXMaxFilter, hasThePropertiesOfACopyOfItsSource)
{
    const QImage noise = support::noise(6, 6, 3);
    QImage grey = noise.convertToFormat(QImage::Format_Grayscale8);
    QImage black = noise;
    black.fill(Qt::black);
    for (QImage image : { noise, noise.convertToFormat(QImage::Format_RGB888), grey, black,
             grey.convertToFormat(QImage::Format_RGB32),
             noise.convertToFormat(QImage::Format_Indexed8) }) {
        image.setDotsPerMeterX(3000);
        image.setDotsPerMeterY(4000);
        image.setDevicePixelRatio(2.0);
        image.setOffset(QPoint(5, 6));
        image.setText(QStringLiteral("Title"), QStringLiteral("Six"));
        image.setColorSpace(QColorSpace::DisplayP3);
        const QImage copy = image.copy(image.rect());
        for (const int size : { 0, 5 }) {
            const QImage filtered = VXMaxFilter(size, 50).evaluate(image);
            EXPECT_EQ(filtered.format(), copy.format());
            EXPECT_EQ(filtered.colorTable(), copy.colorTable());
            EXPECT_EQ(filtered.dotsPerMeterX(), copy.dotsPerMeterX());
            EXPECT_EQ(filtered.dotsPerMeterY(), copy.dotsPerMeterY());
            EXPECT_EQ(filtered.devicePixelRatio(), copy.devicePixelRatio());
            EXPECT_EQ(filtered.offset(), copy.offset());
            EXPECT_EQ(filtered.textKeys(), copy.textKeys());
            EXPECT_EQ(filtered.text(QStringLiteral("Title")), copy.text(QStringLiteral("Title")));
            EXPECT_EQ(filtered.colorSpace(), copy.colorSpace());
        }
    }
}

TEST(VXMaxFilter, equalsThePlainFilterForSparseLevels)
{
    support::Random random(5);
    for (int round = 0; round < 300; ++round) {
        const QSize size(1 + random.below(150), 1 + random.below(60));
        const QImage map = support::greyImage(size, [&](QImage& levels) {
            for (int y = 0; y < size.height(); ++y)
                std::generate_n(levels.scanLine(y), size.width(), [&] {
                    return static_cast<uchar>(random.below(5) == 0 ? random.below(256) : 0);
                });
        });
        const int filterSize = 2 * random.below(80) - 2;
        const int threshold = random.below(300) - 20;
        for (const QImage& image : { map, map.convertToFormat(QImage::Format_Grayscale8) })
            ASSERT_TRUE(equalsPlain(image, filterSize, threshold))
                << "size " << filterSize << ", threshold " << threshold;
    }
}
