#include "host/crop/CropShape.h"

#include "host/HostError.h"

#include <gtest/gtest.h>

TEST(CropShape, ratiosComeInTheOrderGiven)
{
    const QVector<host::CropShape> shapes = host::parseRatios(QStringLiteral("1:1,16:9"));
    ASSERT_EQ(shapes.size(), 2);
    EXPECT_EQ(shapes.at(0).name, QStringLiteral("1:1"));
    EXPECT_EQ(shapes.at(1).fileName(), QStringLiteral("16x9"));
    EXPECT_FALSE(shapes.at(1).size.isValid());
}

TEST(CropShape, aSizeIsARatioToo)
{
    const QVector<host::CropShape> shapes = host::parseSizes(QStringLiteral("1200x630"), {});
    ASSERT_EQ(shapes.size(), 1);
    EXPECT_EQ(shapes.first().ratio, QSize(1200, 630));
    EXPECT_EQ(shapes.first().size, QSize(1200, 630));
}

TEST(CropShape, oneSideOfASizeTakesTheOtherFromEachRatio)
{
    const QVector<host::CropShape> ratios = host::parseRatios(QStringLiteral("16:9,1:1,1.91"));
    const QVector<host::CropShape> wide = host::parseSizes(QStringLiteral("200x"), ratios);
    ASSERT_EQ(wide.size(), 3);
    EXPECT_EQ(wide.at(0).size, QSize(200, 113)); // 112.5 is rounded up
    EXPECT_EQ(wide.at(0).name, QStringLiteral("200x113"));
    EXPECT_EQ(wide.at(1).size, QSize(200, 200));
    EXPECT_EQ(wide.at(2).size, QSize(200, 105)); // 104.7
    const QVector<host::CropShape> high = host::parseSizes(QStringLiteral("x100"), ratios);
    ASSERT_EQ(high.size(), 3);
    EXPECT_EQ(high.at(0).size, QSize(178, 100)); // 177.8
    EXPECT_EQ(high.at(2).size, QSize(191, 100));
    EXPECT_THROW(host::parseSizes(QStringLiteral("200x"), {}), host::HostError);
}

TEST(CropShape, knowsWhichWindowsHaveItsPixels)
{
    const host::CropShape shape = host::parseSizes(QStringLiteral("1200x630"), {}).first();
    EXPECT_TRUE(shape.isFilledBy({ 2400, 1260 }));
    EXPECT_TRUE(shape.isFilledBy({ 1200, 630 }));
    EXPECT_FALSE(shape.isFilledBy({ 1199, 630 }));
    EXPECT_FALSE(shape.isFilledBy({ 1200, 629 }));
}

TEST(CropShape, refusesAnythingElse)
{
    for (const char* const text : { "", "1:1,", ",1:1", "1:1;2:1", "1200x630" })
        EXPECT_THROW(host::parseRatios(QLatin1String(text)), host::HostError) << text;
    for (const char* const text :
        { "", "x", "1200", "0x5", "5x0", "-1x5", "100001x5", "5x5\n", "1:1" })
        EXPECT_THROW(host::parseSizes(QLatin1String(text), {}), host::HostError) << text;
}
