#include "scenes/SampleScenes.h"

#include "support/ImageAssert.h"

#include <VXCrop/VXCrop.h>

TEST(SampleScenes, areDrawnTheSameAtEveryCall)
{
    for (const scenes::Scene& scene : scenes::sampleScenes())
        EXPECT_TRUE(support::sameImage(scene.draw(), scene.draw())) << scene.name.toStdString();
}

TEST(SampleScenes, areOpaquePicturesOfBothShapes)
{
    EXPECT_EQ(scenes::drawBalloon().size(), QSize(1200, 800));
    EXPECT_EQ(scenes::drawSailboat().size(), QSize(1200, 800));
    EXPECT_EQ(scenes::drawPoppy().size(), QSize(800, 1200));
    for (const scenes::Scene& scene : scenes::sampleScenes())
        EXPECT_EQ(scene.draw().format(), QImage::Format_RGB32);
}

TEST(SampleScenes, haveTheirSubjectsAwayFromTheMiddle)
{
    const QImage balloon = scenes::drawBalloon();
    EXPECT_GT(qRed(balloon.pixel(860, 250)), 2 * qBlue(balloon.pixel(860, 250)));
    const QImage sailboat = scenes::drawSailboat();
    EXPECT_GT(qGray(sailboat.pixel(310, 420)), 200);
    const QImage poppy = scenes::drawPoppy();
    EXPECT_GT(qRed(poppy.pixel(430, 740)), 2 * qGreen(poppy.pixel(430, 740)));
}

// The rectangles are the bounds of the subjects: the balloon with its basket, the hull with its sails, the petals.
TEST(SampleScenes, keepTheirSubjectsWholeInASquareCrop)
{
    const auto squareOf = [](const QImage& scene) { return VXCrop(scene).window({ 1, 1 }).window; };
    EXPECT_TRUE(squareOf(scenes::drawBalloon()).contains(QRect(787, 132, 236, 376)));
    EXPECT_TRUE(squareOf(scenes::drawSailboat()).contains(QRect(150, 260, 258, 309)));
    EXPECT_TRUE(squareOf(scenes::drawPoppy()).contains(QRect(268, 678, 324, 324)));
}
