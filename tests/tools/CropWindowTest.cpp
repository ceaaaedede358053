#include "host/CropWindow.h"

#include "support/ImageAssert.h"
#include "support/Random.h"
#include "support/TestImages.h"

#include <QColorSpace>

#include <cmath>

namespace {

constexpr host::AspectRatio square { 1, 1 };

QImage mapWithBrightColumns(const QSize& size, int first, int count)
{
    QImage map(size, QImage::Format_ARGB32);
    map.fill(Qt::black);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = first; x < first + count; ++x)
            map.setPixel(x, y, qRgb(255, 255, 255));
    }
    return map;
}

QImage turned(const QImage& map) { return map.transformed(QTransform(0, 1, 1, 0, 0, 0)); }

} // namespace

TEST(CropWindow, largestWindowFillsOneSideOfThePicture)
{
    EXPECT_EQ(host::largestWindow({ 1200, 800 }, square), QSize(800, 800));
    EXPECT_EQ(host::largestWindow({ 800, 1200 }, square), QSize(800, 800));
    EXPECT_EQ(host::largestWindow({ 640, 480 }, { 16, 9 }), QSize(640, 360));
    EXPECT_EQ(host::largestWindow({ 640, 480 }, { 9, 16 }), QSize(270, 480));
    EXPECT_EQ(host::largestWindow({ 640, 480 }, { 4, 3 }), QSize(640, 480));
}

TEST(CropWindow, largestWindowRoundsToTheNearestPixel)
{
    EXPECT_EQ(host::largestWindow({ 1000, 100 }, { 2, 3 }), QSize(67, 100));
    EXPECT_EQ(host::largestWindow({ 1000, 100 }, { 1, 3 }), QSize(33, 100));
}

TEST(CropWindow, largestWindowKeepsAtLeastOnePixel)
{
    EXPECT_EQ(host::largestWindow({ 5, 5 }, { 1000, 1 }), QSize(5, 1));
    EXPECT_EQ(host::largestWindow({ 5, 5 }, { 1, 1000 }), QSize(1, 5));
    EXPECT_EQ(host::largestWindow({ 1, 1 }, { 16, 9 }), QSize(1, 1));
}

TEST(CropWindow, fitsInsideTheFrameForRandomPicturesAndRatios)
{
    support::Random random(5);
    for (int round = 0; round < 20000; ++round) {
        const QSize picture(1 + random.below(30000), 1 + random.below(30000));
        const host::AspectRatio ratio { 1 + random.below(1000000000),
            1 + random.below(1000000000) };
        const QSize window = host::largestWindow(picture, ratio);
        ASSERT_TRUE(window.width() == picture.width() || window.height() == picture.height());
        ASSERT_TRUE(QRect(QPoint(), picture).contains(QRect(QPoint(), window)));
        const double error = window.width() * static_cast<double>(ratio.height)
            - window.height() * static_cast<double>(ratio.width);
        const auto onePixel = static_cast<double>(std::max(ratio.width, ratio.height));
        ASSERT_LE(std::abs(error), onePixel) << "off by more than a pixel";
    }
}

TEST(CropWindow, followsTheBrightestColumns)
{
    const QImage map = mapWithBrightColumns({ 300, 200 }, 190, 90);
    const QRect window = host::chooseWindow(map, { 1200, 800 }, square);
    EXPECT_EQ(window.size(), QSize(800, 800));
    // The earliest map start whose 200 columns reach the last bright one at 279.
    EXPECT_EQ(window.topLeft(), QPoint(80 * 4, 0));
}

TEST(CropWindow, followsTheBrightestRows)
{
    const QImage map = turned(mapWithBrightColumns({ 300, 200 }, 190, 90));
    ASSERT_EQ(map.size(), QSize(200, 300));
    EXPECT_EQ(host::chooseWindow(map, { 800, 1200 }, square), QRect(0, 80 * 4, 800, 800));
}

TEST(CropWindow, isTheWholePictureWhenThatHasTheRatio)
{
    const QImage map = mapWithBrightColumns({ 64, 48 }, 50, 4);
    EXPECT_EQ(host::chooseWindow(map, { 1200, 900 }, { 4, 3 }), QRect(0, 0, 1200, 900));
}

TEST(CropWindow, liesInsideThePictureForRandomSizes)
{
    support::Random random(9);
    for (int round = 0; round < 3000; ++round) {
        const QSize mapSize(1 + random.below(40), 1 + random.below(40));
        const QSize picture(1 + random.below(300), 1 + random.below(300));
        const host::AspectRatio ratio { 1 + random.below(20), 1 + random.below(20) };
        const QRect window = host::chooseWindow(
            support::noise(mapSize.width(), mapSize.height(), random.word()), picture, ratio);
        ASSERT_EQ(window.size(), host::largestWindow(picture, ratio));
        ASSERT_TRUE(QRect(QPoint(), picture).contains(window));
    }
}

TEST(CropWindow, viewShowsTheWindowWithoutCopyingIt)
{
    QImage picture = support::noise(20, 10, 1);
    picture.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
    picture.setDotsPerMeterX(11811);
    const QRect window(7, 2, 9, 6);
    const QImage view = host::viewOf(picture, window);
    EXPECT_TRUE(support::sameImage(picture.copy(window), view));
    constexpr std::ptrdiff_t bytesBefore = 28; // seven pixels
    EXPECT_EQ(view.constScanLine(0), picture.constScanLine(2) + bytesBefore);
    EXPECT_EQ(view.colorSpace(), picture.colorSpace());
    EXPECT_EQ(view.dotsPerMeterX(), 11811);
}
