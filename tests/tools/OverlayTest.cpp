#include "host/Overlay.h"

#include <gtest/gtest.h>

namespace {

QImage filled(const QSize& size, const QColor& colour)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

int brightness(const QImage& image, int x, int y) { return qGray(image.pixel(x, y)); }

} // namespace

TEST(Overlay, leavesThePictureAsItIsWhereTheMapIsBlackAndNoWindowIsGiven)
{
    const QImage overlay = host::drawOverlay(
        filled({ 60, 40 }, QColor(90, 120, 30)), filled({ 30, 20 }, Qt::black), QRect());
    EXPECT_EQ(overlay.size(), QSize(60, 40));
    EXPECT_EQ(overlay.pixel(30, 20), qRgb(90, 120, 30));
}

TEST(Overlay, glowsYellowWhereTheMapIsWhite)
{
    const QImage overlay
        = host::drawOverlay(filled({ 60, 40 }, Qt::black), filled({ 30, 20 }, Qt::white), QRect());
    const QRgb hot = overlay.pixel(30, 20);
    EXPECT_GT(qRed(hot), 150);
    EXPECT_GT(qGreen(hot), 150);
    EXPECT_LT(qBlue(hot), 100);
}

TEST(Overlay, getsHotterWithEveryLevel)
{
    QImage map(256, 1, QImage::Format_ARGB32);
    for (int level = 0; level < 256; ++level)
        map.setPixel(level, 0, qRgb(level, level, level));
    const QImage overlay = host::drawOverlay(filled({ 256, 1 }, Qt::black), map, QRect());
    for (int level = 51; level < 256; level += 51)
        EXPECT_GT(brightness(overlay, level, 0), brightness(overlay, level - 51, 0)) << level;
}

TEST(Overlay, isHottestAtTheBrightestLevelOfADarkMap)
{
    QImage map(2, 1, QImage::Format_ARGB32);
    map.setPixel(0, 0, qRgb(0, 0, 0));
    map.setPixel(1, 0, qRgb(40, 40, 40));
    const QImage dim = host::drawOverlay(filled({ 2, 1 }, Qt::black), map, QRect());
    map.setPixel(1, 0, qRgb(255, 255, 255));
    EXPECT_EQ(dim, host::drawOverlay(filled({ 2, 1 }, Qt::black), map, QRect()));
}

TEST(Overlay, outlinesTheWindowInWhiteAndDimsWhatLiesOutside)
{
    const QImage overlay = host::drawOverlay(
        filled({ 300, 200 }, Qt::gray), filled({ 30, 20 }, Qt::black), QRect(100, 0, 200, 200));
    EXPECT_EQ(overlay.pixel(100, 100), qRgb(255, 255, 255));
    EXPECT_EQ(overlay.pixel(299, 100), qRgb(255, 255, 255));
    EXPECT_LT(brightness(overlay, 50, 100), brightness(overlay, 200, 100));
    EXPECT_EQ(overlay.pixel(200, 100), QColor(Qt::gray).rgb());
}

TEST(Overlay, isAtMost1600PixelsLong)
{
    const QImage overlay = host::drawOverlay(
        filled({ 400, 4000 }, Qt::gray), filled({ 3, 30 }, Qt::black), QRect(0, 1000, 400, 400));
    EXPECT_EQ(overlay.size(), QSize(160, 1600));
    EXPECT_EQ(overlay.pixel(80, 400), qRgb(255, 255, 255)) << "the window shrinks with the picture";
}
