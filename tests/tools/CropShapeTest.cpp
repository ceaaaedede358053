#include "host/CropShape.h"

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
    const host::CropShape shape = host::parseSize(QStringLiteral("1200x630"));
    EXPECT_EQ(shape.ratio.width(), 1200);
    EXPECT_EQ(shape.ratio.height(), 630);
    EXPECT_EQ(shape.size, QSize(1200, 630));
}

TEST(CropShape, isNeverEnlargedUnlessAsked)
{
    const host::CropShape shape = host::parseSize(QStringLiteral("1200x630"));
    EXPECT_EQ(shape.outputSize({ 2400, 1260 }, false), QSize(1200, 630));
    EXPECT_EQ(shape.outputSize({ 1200, 630 }, false), QSize(1200, 630));
    EXPECT_EQ(shape.outputSize({ 1199, 630 }, false), QSize(1199, 630));
    EXPECT_EQ(shape.outputSize({ 600, 315 }, true), QSize(1200, 630));
}

TEST(CropShape, aRatioIsWrittenAsLargeAsItsWindow)
{
    const host::CropShape shape = host::parseRatios(QStringLiteral("2:1")).first();
    EXPECT_EQ(shape.outputSize({ 600, 300 }, false), QSize(600, 300));
    EXPECT_EQ(shape.outputSize({ 600, 300 }, true), QSize(600, 300));
}

TEST(CropShape, refusesAnythingElse)
{
    for (const char* const text : { "", "1:1,", ",1:1", "1:1;2:1", "1200x630" })
        EXPECT_THROW(host::parseRatios(QLatin1String(text)), host::HostError) << text;
    for (const char* const text : { "", "1200", "0x5", "5x0", "-1x5", "100001x5", "5x5\n", "1:1" })
        EXPECT_THROW(host::parseSize(QLatin1String(text)), host::HostError) << text;
}
