#include <VXRegionOfInterest/VXHistogramROI.h>

#include "support/ImageAssert.h"
#include "support/Memory.h"
#include "support/MessageTrap.h"
#include "support/PlainHistogramROI.h"
#include "support/Random.h"
#include "support/TestImages.h"

#include <QPainter>
#include <array>

#include <climits>
#include <limits>
#include <tuple>

namespace {

using support::HistogramSettings;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

VXHistogramROI methodWith(const HistogramSettings& settings)
{
    VXHistogramROI method;
    method.setChiSquareThreshold(settings.chiSquareThreshold);
    method.setVerticalBlocks(settings.verticalBlocks);
    method.setHorizontalBlocks(settings.horizontalBlocks);
    method.setMinHeight(settings.minHeight);
    method.setMinWidth(settings.minWidth);
    method.setBin1(settings.bin1);
    method.setBin2(settings.bin2);
    return method;
}

QImage mapOf(const QImage& image, const HistogramSettings& settings = {})
{
    return methodWith(settings).evaluate(image);
}

testing::AssertionResult equalsPlain(const QImage& image, const HistogramSettings& settings = {})
{
    return support::sameImage(support::plainHistogramMap(image, settings), mapOf(image, settings));
}

QImage filled(int width, int height, const QColor& colour)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

// Stripes of two colours, `period` pixels wide each, from column `from` on.
void paintStripes(QImage& image, int from, int period, const QColor& a, const QColor& b)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = from; x < image.width(); ++x)
            image.setPixelColor(x, y, x / period % 2 == 0 ? a : b);
    }
}

} // namespace

TEST(VXHistogramROI, isEnabledWithWeightZeroWhenFresh)
{
    VXHistogramROI method;
    EXPECT_TRUE(method.isEnabled());
    EXPECT_EQ(method.getWeight(), 0);
}

TEST(VXHistogramROI, paintsAUniformImage139)
{
    EXPECT_TRUE(support::sameImage(filled(150, 110, QColor(139, 139, 139)),
        VXHistogramROI().evaluate(filled(150, 110, Qt::red))));
}

TEST(VXHistogramROI, leavesTheRemainderBesideTheGridBlack)
{
    const QImage map = VXHistogramROI().evaluate(filled(157, 118, Qt::red));
    for (int y = 0; y < 118; ++y) {
        for (int x = 0; x < 157; ++x)
            EXPECT_EQ(qRed(map.pixel(x, y)), x < 150 && y < 110 ? 139 : 0) << x << ", " << y;
    }
}

TEST(VXHistogramROI, separatesHalvesOfDifferentChroma)
{
    QImage halves = filled(160, 110, QColor(200, 40, 40));
    for (int y = 0; y < 110; ++y) {
        for (int x = 80; x < 160; ++x)
            halves.setPixelColor(x, y, QColor(40, 40, 200));
    }
    HistogramSettings settings;
    settings.horizontalBlocks = 16;
    const QImage map = mapOf(halves, settings);
    EXPECT_EQ(qRed(map.pixel(10, 10)), 10 * 7 - 1); // 11 rows and 8 columns each
    EXPECT_EQ(qRed(map.pixel(150, 100)), 10 * 7 - 1);
}

TEST(VXHistogramROI, mergesHalvesThatDifferInLumaOnly)
{
    QImage halves = filled(150, 110, QColor(100, 100, 100));
    for (int y = 0; y < 110; ++y) {
        for (int x = 70; x < 150; ++x)
            halves.setPixelColor(x, y, QColor(102, 102, 102));
    }
    const VXHistogramROI method;
    ASSERT_EQ(method.RGB2YCrCb(qRgb(100, 100, 100)) & 0xFFFFU,
        method.RGB2YCrCb(qRgb(102, 102, 102)) & 0xFFFFU);
    EXPECT_EQ(qRed(VXHistogramROI().evaluate(halves).pixel(10, 10)), 139);
}

TEST(VXHistogramROI, paintsARegionOfASingleBlockRowBlack)
{
    // One row of blocks over the whole width: dx = 14 passes the width test, the level is 0 · 14
    // - 1.
    QImage image = filled(150, 110, Qt::red);
    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 150; ++x)
            image.setPixelColor(x, y, Qt::blue);
    }
    const QImage map = VXHistogramROI().evaluate(image);
    EXPECT_EQ(qRed(map.pixel(70, 5)), 0);
    EXPECT_EQ(qRed(map.pixel(70, 50)), 9 * 14 - 1);
}

TEST(VXHistogramROI, paintsNothingForAThresholdBelowZeroOrNotANumber)
{
    HistogramSettings settings;
    for (const double threshold : { -0.1, -infinity, notANumber }) {
        settings.chiSquareThreshold = threshold;
        EXPECT_TRUE(support::sameImage(
            filled(150, 110, Qt::black), mapOf(filled(150, 110, Qt::red), settings)));
    }
}

TEST(VXHistogramROI, paintsASingleBlockBlackEvenWhenItPassesTheTests)
{
    HistogramSettings settings;
    settings.verticalBlocks = 1;
    settings.horizontalBlocks = 1;
    settings.minHeight = -1;
    EXPECT_TRUE(
        support::sameImage(filled(30, 20, Qt::black), mapOf(filled(30, 20, Qt::red), settings)));
}

TEST(VXHistogramROI, mapIsOpaqueBlackForSettingsOutOfRange)
{
    const QImage image = filled(120, 120, Qt::red);
    for (const int count : { INT_MIN, -1, 0, 101, INT_MAX }) {
        HistogramSettings rows;
        rows.verticalBlocks = count;
        EXPECT_TRUE(support::sameImage(filled(120, 120, Qt::black), mapOf(image, rows))) << count;
        HistogramSettings columns;
        columns.horizontalBlocks = count;
        EXPECT_TRUE(support::sameImage(filled(120, 120, Qt::black), mapOf(image, columns)))
            << count;
    }
    for (const int count : { INT_MIN, -1, 0 }) {
        HistogramSettings first;
        first.bin1 = count;
        EXPECT_TRUE(support::sameImage(filled(120, 120, Qt::black), mapOf(image, first))) << count;
        HistogramSettings second;
        second.bin2 = count;
        EXPECT_TRUE(support::sameImage(filled(120, 120, Qt::black), mapOf(image, second))) << count;
    }
}

TEST(VXHistogramROI, takesUpToAHundredBlocksEachWay)
{
    HistogramSettings settings;
    settings.verticalBlocks = 100;
    settings.horizontalBlocks = 100;
    settings.bin1 = 4;
    settings.bin2 = 4;
    EXPECT_TRUE(equalsPlain(support::variedImages(205, 210, 1)[2], settings));
}

TEST(VXHistogramROI, mapOfAnImageSmallerThanTheGridIsOpaqueBlack)
{
    for (const QSize& size : { QSize(14, 200), QSize(200, 10), QSize(1, 1) })
        EXPECT_TRUE(support::sameImage(filled(size.width(), size.height(), Qt::black),
            VXHistogramROI().evaluate(filled(size.width(), size.height(), Qt::red))));
    EXPECT_EQ(qRed(VXHistogramROI().evaluate(filled(15, 11, Qt::red)).pixel(7, 7)), 139);
}

TEST(VXHistogramROI, moreThan256BinsWork)
{
    const QImage image = support::variedImages(60, 44, 2)[2];
    for (const int bins : { 256, 257, 300, 1000 }) {
        HistogramSettings settings;
        settings.verticalBlocks = 3;
        settings.horizontalBlocks = 4;
        settings.bin1 = bins;
        settings.bin2 = bins + 5;
        settings.chiSquareThreshold = 400;
        EXPECT_TRUE(equalsPlain(image, settings)) << bins;
    }
    HistogramSettings most;
    most.bin1 = INT_MAX;
    most.bin2 = INT_MAX;
    EXPECT_FALSE(mapOf(image, most).isNull());
}

TEST(VXHistogramROI, edgesThatAreNoNumbersNeitherStopTheWalkNorMerge)
{
    // With two bins each way, a block with as many pixels in each bin has no range.
    QImage image = filled(64, 64, Qt::red);
    const std::array<QColor, 4> corners { QColor(255, 0, 0), QColor(0, 0, 255), QColor(255, 0, 255),
        QColor(0, 255, 0) };
    for (int y = 0; y < 64; ++y) {
        for (int x = 32; x < 64; ++x)
            image.setPixelColor(x, y, corners.at(static_cast<std::size_t>(x % 2 + 2 * (y % 2))));
    }
    HistogramSettings settings;
    settings.verticalBlocks = 8;
    settings.horizontalBlocks = 8;
    settings.bin1 = 2;
    settings.bin2 = 2;
    settings.minWidth = 0.2;
    EXPECT_TRUE(equalsPlain(image, settings));
    EXPECT_EQ(qRed(mapOf(image, settings).pixel(5, 5)), 7 * 3 - 1);
}

TEST(VXHistogramROI, convertsAPixelToLumaAndChroma)
{
    const VXHistogramROI method;
    EXPECT_EQ(method.RGB2YCrCb(0x00000000), 0xFF008080U);
    // Red 255: Y 76.245, Cb 84.99782, Cr 255.452315 - 0.452315.
    EXPECT_EQ(method.RGB2YCrCb(0xFFFF0000),
        0xFF000000U | 76U << 16U | 84U << 8U | static_cast<unsigned>((255 - 76.245) * 0.713 + 128));
}

TEST(VXHistogramROI, lumaAddsRedAndGreenFirst)
{
    const VXHistogramROI method;
    int belowTheLevel = 0;
    int belowTheLevelOtherwise = 0;
    for (int level = 0; level < 256; ++level) {
        const unsigned packed = method.RGB2YCrCb(qRgb(level, level, level));
        EXPECT_EQ(packed & 0xFFFFU, 0x8080U) << level;
        const volatile double red = level * 0.299;
        const volatile double green = level * 0.587;
        const volatile double blue = level * 0.114;
        EXPECT_EQ(qRed(packed), static_cast<int>((red + green) + blue));
        belowTheLevel += qRed(packed) < level ? 1 : 0;
        belowTheLevelOtherwise += static_cast<int>(red + (green + blue)) < level ? 1 : 0;
    }
    // The weights' sum is 1, but rounding shows in the greys, and in which ones depends on the
    // order.
    EXPECT_EQ(belowTheLevel, 65);
    EXPECT_EQ(belowTheLevelOtherwise, 16);
}

TEST(VXHistogramROI, convertsAsManyRowsAndColumnsAsTheSizeImageHas)
{
    const VXHistogramROI method;
    const QImage source = support::noise(20, 15, 3);
    for (const QSize& size : { QSize(20, 15), QSize(7, 9), QSize(100, 4), QSize(0, 0) }) {
        const QImage converted = method.convertToYcbcr(QImage(size, QImage::Format_ARGB32), source);
        ASSERT_EQ(converted.size(), source.size());
        ASSERT_EQ(converted.format(), QImage::Format_ARGB32);
        for (int y = 0; y < 15; ++y) {
            for (int x = 0; x < 20; ++x) {
                const bool isConverted = x < size.width() && y < size.height();
                EXPECT_EQ(converted.pixel(x, y),
                    isConverted ? method.RGB2YCrCb(source.pixel(x, y)) : 0xFF000000U);
            }
        }
    }
    EXPECT_TRUE(method.convertToYcbcr(source, QImage()).isNull());
}

TEST(VXHistogramROI, drawsABlockOfTheGrid)
{
    QImage target = filled(20, 20, Qt::black);
    VXHistogramROI().drawTarget(2, 1, 77.9, target, 5, 4);
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 20; ++x)
            EXPECT_EQ(qRed(target.pixel(x, y)), x >= 10 && x < 15 && y >= 4 && y < 8 ? 77 : 0);
    }
}

TEST(VXHistogramROI, drawsIntoGreyAndOtherFormats)
{
    for (const QImage::Format format : { QImage::Format_Grayscale8, QImage::Format_RGB32,
             QImage::Format_RGB888, QImage::Format_RGBA64, QImage::Format_ARGB32_Premultiplied }) {
        QImage target = filled(10, 10, Qt::black).convertToFormat(format);
        VXHistogramROI().drawTarget(1, 1, 77.9, target, 5, 5);
        EXPECT_EQ(target.pixel(7, 7), qRgb(77, 77, 77)) << format;
        EXPECT_EQ(target.pixel(4, 7), qRgb(0, 0, 0)) << format;
    }
}

// Where several pixels of an image are one for a painter, as on a display of high resolution.
TEST(VXHistogramROI, drawsWhereAPainterWould)
{
    for (const double ratio : { 0.5, 1.0, 1.5, 2.0, 3.0 }) {
        for (int format = QImage::Format_RGB32; format < QImage::NImageFormats; ++format) {
            QImage drawn
                = filled(24, 18, Qt::red).convertToFormat(static_cast<QImage::Format>(format));
            drawn.setDevicePixelRatio(ratio);
            QImage painted = drawn.copy();
            VXHistogramROI().drawTarget(1, 2, 77.9, drawn, 5, 3);
            QPainter(&painted).fillRect(QRect(QPoint(5, 6), QPoint(9, 8)), QColor(77, 77, 77));
            EXPECT_EQ(drawn, painted) << "ratio " << ratio << ", format " << format;
        }
    }
}

TEST(VXHistogramROI, drawnLevelsAreTruncatedAndClamped)
{
    const std::vector<std::pair<double, int>> levels { { 255.99, 255 }, { 256, 255 },
        { 1e300, 255 }, { 0.99, 0 }, { -1, 0 }, { -1e300, 0 }, { notANumber, 0 }, { infinity, 255 },
        { -infinity, 0 }, { 12.0, 12 } };
    for (const auto& [value, level] : levels) {
        QImage target = filled(4, 4, Qt::green);
        VXHistogramROI().drawTarget(0, 0, value, target, 4, 4);
        EXPECT_EQ(target.pixel(3, 3), qRgb(level, level, level)) << value;
    }
}

TEST(VXHistogramROI, drawsNothingOutsideTheTargetAndSaysNothing)
{
    const support::MessageTrap trap;
    const VXHistogramROI method;
    const QImage untouched = filled(10, 10, Qt::red);
    for (const auto& [column, row, width, height] :
        { std::tuple(-1, 0, 5, 5), std::tuple(0, 2, 5, 5), std::tuple(1, 1, 0, 5),
            std::tuple(1, 1, 5, -5), std::tuple(INT_MAX, INT_MAX, INT_MAX, INT_MAX),
            std::tuple(INT_MIN, INT_MIN, INT_MAX, INT_MAX), std::tuple(1, 1, INT_MIN, INT_MIN) }) {
        QImage target = untouched;
        method.drawTarget(column, row, 99, target, width, height);
        EXPECT_TRUE(support::sameImage(untouched, target)) << column << ", " << row;
    }
    QImage none;
    method.drawTarget(0, 0, 99, none, 5, 5);
    QImage palette = untouched.convertToFormat(QImage::Format_Indexed8);
    method.drawTarget(0, 0, 99, palette, 5, 5);
    EXPECT_TRUE(support::sameImage(untouched.convertToFormat(QImage::Format_Indexed8), palette));
    EXPECT_TRUE(trap.texts().isEmpty());
}

TEST(VXHistogramROI, drawingLeavesImagesAloneThatShareTheData)
{
    const QImage original = filled(10, 10, Qt::red);
    QImage target = original;
    VXHistogramROI().drawTarget(0, 0, 99, target, 5, 5);
    EXPECT_TRUE(support::sameImage(filled(10, 10, Qt::red), original));
    EXPECT_EQ(qRed(target.pixel(0, 0)), 99);
}

TEST(VXHistogramROI, returnsANullMapForANullImageWithoutAMessage)
{
    const support::MessageTrap trap;
    EXPECT_TRUE(VXHistogramROI().evaluate(QImage()).isNull());
    EXPECT_TRUE(VXHistogramROI().evaluate(QImage(0, 5, QImage::Format_RGB32)).isNull());
    EXPECT_TRUE(trap.texts().isEmpty());
}

TEST(VXHistogramROI, equalsThePlainMethodForEverySize)
{
    support::Random random(4);
    for (int height = 1; height <= 40; ++height) {
        for (int width = 1; width <= 40; ++width) {
            HistogramSettings settings;
            settings.verticalBlocks = 1 + random.below(height);
            settings.horizontalBlocks = 1 + random.below(width);
            settings.bin1 = 1 + random.below(12);
            settings.bin2 = 1 + random.below(12);
            settings.chiSquareThreshold = random.below(300) / 100.0 - 0.2;
            settings.minHeight = random.below(10) / 10.0;
            settings.minWidth = random.below(10) / 10.0;
            const std::vector<QImage> images = support::variedImages(width, height, random.word());
            const QImage& image = images[static_cast<std::size_t>(random.below(5))];
            ASSERT_TRUE(equalsPlain(image, settings)) << width << " x " << height;
        }
    }
}

TEST(VXHistogramROI, equalsThePlainMethodForLargerImagesAndItsDefaults)
{
    for (const QSize& size : { QSize(640, 480), QSize(333, 222), QSize(480, 640) }) {
        for (const QImage& image : support::variedImages(size.width(), size.height(), 5))
            EXPECT_TRUE(equalsPlain(image));
        QImage stripes = support::variedImages(size.width(), size.height(), 6)[3];
        paintStripes(stripes, size.width() / 3, 9, QColor(90, 130, 60), QColor(60, 110, 90));
        EXPECT_TRUE(equalsPlain(stripes));
    }
}

TEST(VXHistogramROI, readsEveryDepth)
{
    for (int format = 1; format < QImage::NImageFormats; ++format) {
        const QImage image = support::variedImages(60, 44, 7)[2].convertToFormat(
            static_cast<QImage::Format>(format));
        const QImage words
            = image.depth() == 32 ? image : image.convertToFormat(QImage::Format_ARGB32);
        EXPECT_TRUE(support::sameImage(
            support::plainHistogramMap(words, {}), VXHistogramROI().evaluate(image)))
            << format;
    }
}

TEST(VXHistogramROI, tenThousandEvaluationsLeaveTheMemoryOfAHundred)
{
    if (support::isSanitized)
        GTEST_SKIP() << "the sanitizer keeps freed memory; its leak checker sees to this";
    VXHistogramROI method;
    method.setBin1(8); // few, to be quick: the bins of one evaluation take 82 KiB
    method.setBin2(8);
    const QImage image = support::noise(45, 33, 8);
    for (int i = 0; i < 100; ++i)
        method.evaluate(image);
    const double before = support::residentMemory();
    for (int i = 100; i < 10000; ++i)
        method.evaluate(image);
    EXPECT_LT(support::residentMemory() - before, 1024 * 1024) << "bytes";
}
