#include <VXRegionOfInterest/VXBackgroundROI.h>

#include "kernels/background/BackgroundMap.h"
#include "kernels/image/PixelWords.h"
#include "support/ImageAssert.h"
#include "support/MessageTrap.h"
#include "support/TestImages.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

QImage filled(int width, int height, const QColor& colour)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

int levelAt(const QImage& map, int x, int y) { return qRed(map.pixel(x, y)); }

testing::AssertionResult equalsPlain(const QImage& image)
{
    const QImage words = vx::kernels::toPixelWords(image);
    QImage plain(words.size(), QImage::Format_ARGB32);
    vx::kernels::reference::writeBackgroundMap(words, plain);
    return support::sameImage(plain, VXBackgroundROI().evaluate(image));
}

} // namespace

TEST(VXBackgroundROI, isEnabledWithWeightZeroWhenFresh)
{
    VXBackgroundROI method;
    EXPECT_TRUE(method.isEnabled());
    EXPECT_EQ(method.getWeight(), 0);
}

TEST(VXBackgroundROI, returnsANullMapForANullImageWithoutAMessage)
{
    const support::MessageTrap trap;
    EXPECT_TRUE(VXBackgroundROI().evaluate(QImage()).isNull());
    EXPECT_TRUE(VXBackgroundROI().evaluate(QImage(0, 3, QImage::Format_RGB32)).isNull());
    EXPECT_TRUE(trap.texts().isEmpty());
}

TEST(VXBackgroundROI, anImageOfOneColourIsBlack)
{
    for (const QSize& size :
        { QSize(1, 1), QSize(1, 90), QSize(90, 1), QSize(2, 2), QSize(100, 80), QSize(33, 200) }) {
        const QImage map
            = VXBackgroundROI().evaluate(filled(size.width(), size.height(), QColor(9, 200, 77)));
        EXPECT_EQ(map.size(), size);
        EXPECT_TRUE(support::isOpaqueGrey(map));
        const std::vector<int> levels = support::reds(map);
        EXPECT_EQ(*std::max_element(levels.begin(), levels.end()), 0);
    }
}

// Where all is border, there are no distances but those to the border's colours.
TEST(VXBackgroundROI, theMiddleOfNinePixelsIsAllThatStandsOut)
{
    QImage image = filled(3, 3, Qt::darkGreen);
    image.setPixelColor(1, 1, Qt::white);
    EXPECT_EQ(support::reds(VXBackgroundROI().evaluate(image)),
        (std::vector { 0, 0, 0, 0, 255, 0, 0, 0, 0 }));
}

// Two pixels with equal distances; a pixel is a cell in so small an image. All others have none, so the mean
// of all is 2 / 81, and what is left of both is the same.
TEST(VXBackgroundROI, ofTwoAlikeTheOneInTheMiddleStandsOutMore)
{
    QImage image = filled(9, 9, Qt::darkGreen);
    image.setPixelColor(4, 4, Qt::white);
    image.setPixelColor(2, 4, Qt::white);
    const QImage map = VXBackgroundROI().evaluate(image);
    EXPECT_EQ(levelAt(map, 4, 4), 255);
    const double distance = 2.0 / 9;
    const double bump = std::exp(-distance * distance / (2 * 0.4 * 0.4));
    EXPECT_EQ(levelAt(map, 2, 4), std::lround(255 * bump));

    image.setPixelColor(2, 4, Qt::darkGreen);
    image.setPixelColor(4, 6, Qt::white);
    const double bumpDown = std::exp(-distance * distance / (2 * 0.25 * 0.25));
    EXPECT_EQ(levelAt(VXBackgroundROI().evaluate(image), 4, 6), std::lround(255 * bumpDown));
}

TEST(VXBackgroundROI, aDiscStandsOutWhereverItIs)
{
    for (const QPoint& centre : { QPoint(160, 120), QPoint(60, 120), QPoint(250, 70) }) {
        QImage image = filled(320, 240, QColor(70, 120, 170));
        QPainter painter(&image);
        painter.setBrush(QColor(220, 60, 30));
        painter.setPen(Qt::NoPen);
        painter.drawEllipse(centre, 30, 30);
        painter.end();
        const QImage map = VXBackgroundROI().evaluate(image);
        EXPECT_GT(levelAt(map, centre.x(), centre.y()), 200);
        for (const QPoint& corner :
            { QPoint(0, 0), QPoint(319, 0), QPoint(0, 239), QPoint(319, 239) })
            EXPECT_LT(levelAt(map, corner.x(), corner.y()), 10);
    }
}

// There is a way to the border without a change of colour, but the other sides have other colours.
TEST(VXBackgroundROI, whatTouchesOneSideStandsOutToo)
{
    QImage image = filled(300, 300, QColor(70, 120, 170));
    QPainter(&image).fillRect(QRect(110, 180, 80, 120), QColor(220, 60, 30));
    const QImage map = VXBackgroundROI().evaluate(image);
    EXPECT_GT(levelAt(map, 150, 200), 85) << "one of three distances";
    EXPECT_LT(levelAt(map, 30, 200), 10);
}

TEST(VXBackgroundROI, ignoresAlpha)
{
    const QImage image = support::noise(30, 20, 4);
    QImage opaque = image;
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 30; ++x)
            opaque.setPixel(x, y, image.pixel(x, y) | 0xFF000000U);
    }
    EXPECT_TRUE(
        support::sameImage(VXBackgroundROI().evaluate(opaque), VXBackgroundROI().evaluate(image)));
}

TEST(VXBackgroundROI, equalsThePlainMethodInEveryFormat)
{
    for (int format = 1; format < QImage::NImageFormats; ++format)
        EXPECT_TRUE(equalsPlain(
            support::noise(133, 121, 7).convertToFormat(static_cast<QImage::Format>(format))))
            << format;
}

TEST(VXBackgroundROI, leavesItsImageAlone)
{
    const QImage image = support::noise(100, 90, 3);
    const QImage untouched = image.copy();
    VXBackgroundROI().evaluate(image);
    EXPECT_TRUE(support::sameImage(untouched, image));
}
