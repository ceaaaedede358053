#include "vxroi/options/Shapes.h"

#include "host/HostError.h"

#include <gtest/gtest.h>

namespace {

void expectRatio(const QString& text, double widthToHeight)
{
    const QSize ratio = vxroi::parseRatio(text);
    EXPECT_DOUBLE_EQ(static_cast<double>(ratio.width()) / ratio.height(), widthToHeight);
}

} // namespace

TEST(Shapes, ratioIsWidthToHeight)
{
    expectRatio(QStringLiteral("16:9"), 16.0 / 9);
    expectRatio(QStringLiteral("1:1"), 1);
    expectRatio(QStringLiteral("4:5"), 0.8);
    expectRatio(QStringLiteral("99999:1"), 99999);
}

TEST(Shapes, ratiosTakeDecimals)
{
    expectRatio(QStringLiteral("1.91:1"), 1.91);
    expectRatio(QStringLiteral("1:0.0001"), 10000);
    expectRatio(QStringLiteral("2.5:1.25"), 2);
}

TEST(Shapes, takesOneNumberAsThatToOne)
{
    expectRatio(QStringLiteral("1.91"), 1.91);
    expectRatio(QStringLiteral("2"), 2);
}

TEST(Shapes, refusesWhatIsNotARatioAndNamesIt)
{
    for (const char* const bad : { "", ":", "0", "1.", " 1", "1:", ":1", "0:1", "1:0", "0.0:1",
             "-1:1", "1:-1", "16x9", "16/9", "16:9:1", "1e3:1", "1,5:1", " 1:1", "1:1\n", "inf:1",
             "nan:1", "123456:1", "1.00001:1", "\xD9\xA1:1", "vier:3" }) {
        try {
            vxroi::parseRatio(QString::fromUtf8(bad));
            ADD_FAILURE() << "accepted \"" << bad << '"';
        } catch (const host::HostError& error) {
            EXPECT_EQ(error.code(), host::ExitCode::Usage);
            EXPECT_EQ(std::string(error.what()).rfind("--ratio", 0), 0U) << error.what();
        }
    }
}

TEST(Shapes, ratiosComeInTheOrderGiven)
{
    const QVector<host::CropShape> shapes = vxroi::parseRatios(QStringLiteral("1:1,16:9"));
    ASSERT_EQ(shapes.size(), 2);
    EXPECT_EQ(shapes.at(0).name, QStringLiteral("1:1"));
    EXPECT_EQ(shapes.at(1).fileName(), QStringLiteral("16x9"));
    EXPECT_FALSE(shapes.at(1).size.isValid());
}

TEST(Shapes, aSizeIsARatioToo)
{
    const QVector<host::CropShape> shapes = vxroi::parseSize(QStringLiteral("1200x630"), {});
    ASSERT_EQ(shapes.size(), 1);
    EXPECT_EQ(shapes.first().ratio, QSize(1200, 630));
    EXPECT_EQ(shapes.first().size, QSize(1200, 630));
}

TEST(Shapes, oneSideOfASizeTakesTheOtherFromEachRatio)
{
    const QVector<host::CropShape> ratios = vxroi::parseRatios(QStringLiteral("16:9,1:1,1.91"));
    const QVector<host::CropShape> wide = vxroi::parseSize(QStringLiteral("200x"), ratios);
    ASSERT_EQ(wide.size(), 3);
    EXPECT_EQ(wide.at(0).size, QSize(200, 113)); // 112.5 is rounded up
    EXPECT_EQ(wide.at(0).name, QStringLiteral("200x113"));
    EXPECT_EQ(wide.at(1).size, QSize(200, 200));
    EXPECT_EQ(wide.at(2).size, QSize(200, 105)); // 104.7
    const QVector<host::CropShape> high = vxroi::parseSize(QStringLiteral("x100"), ratios);
    ASSERT_EQ(high.size(), 3);
    EXPECT_EQ(high.at(0).size, QSize(178, 100)); // 177.8
    EXPECT_EQ(high.at(2).size, QSize(191, 100));
    EXPECT_THROW(vxroi::parseSize(QStringLiteral("200x"), {}), host::HostError);
}

TEST(Shapes, knowsWhichWindowsHaveItsPixels)
{
    const host::CropShape shape = vxroi::parseSize(QStringLiteral("1200x630"), {}).first();
    EXPECT_TRUE(shape.isFilledBy({ 2400, 1260 }));
    EXPECT_TRUE(shape.isFilledBy({ 1200, 630 }));
    EXPECT_FALSE(shape.isFilledBy({ 1199, 630 }));
    EXPECT_FALSE(shape.isFilledBy({ 1200, 629 }));
}

TEST(Shapes, refusesWhatIsNeitherARatioNorASize)
{
    for (const char* const text : { "", "1:1,", ",1:1", "1:1;2:1", "1200x630" })
        EXPECT_THROW(vxroi::parseRatios(QLatin1String(text)), host::HostError) << text;
    for (const char* const text :
        { "", "x", "1200", "0x5", "5x0", "-1x5", "100001x5", "5x5\n", "1:1" })
        EXPECT_THROW(vxroi::parseSize(QLatin1String(text), {}), host::HostError) << text;
}

TEST(Shapes, refusesWhatIsNoGrid)
{
    EXPECT_EQ(vxroi::parseGrid(QStringLiteral("12x8")), QSize(12, 8));
    EXPECT_EQ(vxroi::parseGrid(QStringLiteral("200x2")), QSize(200, 2));
    for (const char* const text : { "", "12", "1x8", "8x1", "201x8", "8x201", "12:8", "-2x8" })
        EXPECT_THROW(vxroi::parseGrid(QLatin1String(text)), host::HostError) << text;
}
