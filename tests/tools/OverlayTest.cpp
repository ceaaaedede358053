#include "host/crop/Overlay.h"

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
    for (int level = 64 + 48; level < 256; level += 48)
        EXPECT_GT(brightness(overlay, level, 0), brightness(overlay, level - 48, 0)) << level;
}

TEST(Overlay, tintsNothingBelowAQuarterOfTheBrightestLevel)
{
    QImage map(256, 1, QImage::Format_ARGB32);
    for (int level = 0; level < 256; ++level)
        map.setPixel(level, 0, qRgb(level, level, level));
    const QImage overlay = host::drawOverlay(filled({ 256, 1 }, QColor(9, 99, 199)), map, QRect());
    for (int level = 0; level < 64; ++level)
        EXPECT_EQ(overlay.pixel(level, 0), qRgb(9, 99, 199)) << level;
    EXPECT_NE(overlay.pixel(80, 0), qRgb(9, 99, 199));
}

TEST(Overlay, showsItsScaleBelowThePicture)
{
    const QImage picture = filled({ 300, 200 }, QColor(9, 99, 199));
    const QImage overlay = host::drawOverlay(picture, filled({ 30, 20 }, Qt::black), QRect());
    EXPECT_EQ(overlay.copy(picture.rect()), picture.convertToFormat(QImage::Format_RGB32));
    const QImage strip = overlay.copy(0, 200, 300, overlay.height() - 200);
    int white = 0;
    int yellow = 0;
    for (int y = 0; y < strip.height(); ++y) {
        for (int x = 0; x < strip.width(); ++x) {
            white += strip.pixel(x, y) == 0xFFFFFFFFU ? 1 : 0;
            yellow += qGreen(strip.pixel(x, y)) > 180 && qBlue(strip.pixel(x, y)) < 130 ? 1 : 0;
        }
    }
    EXPECT_GT(white, 100) << "the labels";
    EXPECT_GT(yellow, 20) << "the hottest end";
}

TEST(Overlay, hasNoScaleWhereThePictureIsTooNarrowForIt)
{
    const QImage overlay
        = host::drawOverlay(filled({ 60, 400 }, Qt::black), filled({ 3, 20 }, Qt::black), QRect());
    EXPECT_EQ(overlay.size(), QSize(60, 400));
}

TEST(Overlay, marksFaces)
{
    VXCropConstraints constraints;
    constraints.faces = { QRect(20, 20, 60, 60), QRect(150, 20, 60, 60) };
    const QImage overlay = host::drawOverlay(
        filled({ 300, 200 }, Qt::black), filled({ 30, 20 }, Qt::black), QRect(), constraints);
    EXPECT_EQ(overlay.pixel(21, 20), QColor(Qt::green).rgb());
    EXPECT_EQ(overlay.pixel(151, 20), QColor(Qt::green).rgb());
}

TEST(Overlay, marksAreasToKeepAndToAvoid)
{
    const QImage overlay
        = host::drawOverlay(filled({ 300, 200 }, Qt::black), filled({ 30, 20 }, Qt::black), QRect(),
            { { QRect(20, 20, 60, 60) }, { QRect(150, 20, 60, 60) }, std::nullopt });
    EXPECT_EQ(overlay.pixel(21, 20), QColor(Qt::cyan).rgb());
    EXPECT_EQ(overlay.pixel(151, 20), QColor(Qt::red).rgb());
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
    EXPECT_EQ(overlay.width(), 160);
    EXPECT_GE(overlay.height(), 1600);
    EXPECT_EQ(overlay.pixel(80, 400), qRgb(255, 255, 255)) << "the window shrinks with the picture";
}
