#include "kernels/background/BackgroundMap.h"

#include "kernels/background/BackgroundDistances.h"
#include "support/TestImages.h"
#include "support/Variants.h"

#include <algorithm>
#include <cmath>

namespace {

using namespace vx::kernels;

testing::AssertionResult fastEqualsPlain(const QImage& image)
{
    QImage plain(image.size(), QImage::Format_ARGB32);
    reference::writeBackgroundMap(image, plain);
    return support::everyVariantGives(plain, [&](const RowLoops& loops) {
        QImage map(image.size(), QImage::Format_ARGB32);
        writeBackgroundMap(image, map, loops);
        return map;
    });
}

std::vector<double> valuesOf(const Cells<double>& cells) { return { cells.begin(), cells.end() }; }

// Cells of a grey that differs in lightness only.
Cells<Lab> greys(int columns, const std::vector<double>& lightness)
{
    Cells<Lab> colours(QSize(columns, static_cast<int>(lightness.size()) / columns));
    std::transform(lightness.begin(), lightness.end(), colours.begin(), [](double value) {
        return Lab { value, 0, 0 };
    });
    return colours;
}

} // namespace

TEST(BackgroundMap, fastEqualsPlainForEverySize)
{
    for (int height = 1; height <= 40; ++height) {
        for (int width = 1; width <= 40; ++width) {
            const auto seed = static_cast<unsigned>(width * 41 + height);
            const std::vector<QImage> images = support::variedImages(width, height, seed);
            ASSERT_TRUE(fastEqualsPlain(images[seed % images.size()])) << width << " x " << height;
        }
    }
}

TEST(BackgroundMap, fastEqualsPlainForLargerImagesAndPaddedRows)
{
    for (const QSize& size : { QSize(640, 480), QSize(479, 641), QSize(81, 79), QSize(160, 3),
             QSize(1, 3000), QSize(3000, 1), QSize(163, 97) }) {
        for (const QImage& image : support::variedImages(size.width(), size.height(), 6))
            ASSERT_TRUE(fastEqualsPlain(image)) << size.width() << " x " << size.height();
    }
    const support::PaddedImage padded(support::noise(97, 45, 2));
    EXPECT_TRUE(fastEqualsPlain(padded.image()));
}

// A cell is 375 rows high: the sums of its columns outgrow 16 bits after 257.
TEST(BackgroundMap, fastEqualsPlainForBrightTallImages)
{
    QImage image = support::noise(7, 30000, 5);
    for (int y = 0; y < image.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            row[x] |= 0xFFF0F8F1U;
    }
    EXPECT_TRUE(fastEqualsPlain(image));
}

TEST(BackgroundMap, gridsHaveTheShapeOfTheImageAndNoMoreCellsThanPixels)
{
    EXPECT_EQ(gridFor(QSize(640, 480), 80), QSize(80, 60));
    EXPECT_EQ(gridFor(QSize(480, 640), 20), QSize(15, 20));
    EXPECT_EQ(gridFor(QSize(800, 333), 80), QSize(80, 33)) << "33.3";
    EXPECT_EQ(gridFor(QSize(800, 335), 80), QSize(80, 34)) << "33.5";
    EXPECT_EQ(gridFor(QSize(1000, 1), 80), QSize(80, 1)) << "0.08";
    EXPECT_EQ(gridFor(QSize(9, 7), 80), QSize(9, 7));
    EXPECT_EQ(gridFor(QSize(67000000, 2), 80), QSize(80, 1));
}

// Columns 0 to 2 and 3 to 6 of seven, as 0 · 7 / 2, 1 · 7 / 2 and 2 · 7 / 2 are 0, 3 and 7.
TEST(BackgroundMap, coloursOfCellsAreMeansOfTheirPixels)
{
    QImage image(7, 1, QImage::Format_RGB32);
    for (int x = 0; x < 7; ++x)
        image.setPixel(x, 0, qRgb(10 * x, 0, 3 * x));
    const Cells<Lab> colours = cellColours(image, QSize(2, 1));
    const auto expectSame = [](const Lab& expected, const Lab& actual) {
        EXPECT_EQ(expected.lightness, actual.lightness);
        EXPECT_EQ(expected.a, actual.a);
        EXPECT_EQ(expected.b, actual.b);
    };
    expectSame(labOf(qRgb(10, 0, 3)), colours.at(0, 0));
    expectSame(labOf(qRgb(45, 0, 14)), colours.at(1, 0)); // 13.5
}

// Of the standard's primaries; the last two lie on the line for dark colours.
TEST(BackgroundMap, labIsThatOfTheStandard)
{
    const auto expectNear = [](QRgb colour, double lightness, double a, double b) {
        const Lab lab = labOf(colour);
        EXPECT_NEAR(lab.lightness, lightness, 0.005);
        EXPECT_NEAR(lab.a, a, 0.005);
        EXPECT_NEAR(lab.b, b, 0.005);
    };
    expectNear(qRgb(255, 255, 255), 100, 0, 0);
    expectNear(qRgb(255, 0, 0), 53.24, 80.09, 67.20);
    expectNear(qRgb(0, 255, 0), 87.73, -86.18, 83.18);
    expectNear(qRgb(0, 0, 255), 32.30, 79.19, -107.86);
    expectNear(qRgb(0, 0, 0), 0, 0, 0);
    expectNear(qRgb(10, 10, 10), 2.74, 0, 0); // 10 / 255 / 12.92 · 24389 / 27
}

TEST(BackgroundMap, labOfGreysFollowsFromTheCubeRoot)
{
    for (int level = 0; level < 256; ++level) {
        const double share = level / 255.0;
        const double light
            = share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
        const double expected
            = light > 216.0 / 24389 ? 116 * std::cbrt(light) - 16 : light * 24389 / 27;
        const Lab lab = labOf(qRgb(level, level, level));
        EXPECT_NEAR(lab.lightness, expected, 1e-10) << level;
        EXPECT_NEAR(lab.a, 0, 1e-10) << level;
        EXPECT_NEAR(lab.b, 0, 1e-10) << level;
    }
}

// Smoothed, the middle is 16 · 2 · 2 / 16, its neighbours are 16 · 2 / 16, and those at the corners
// 16 / 16. All other ways out lead over larger values.
TEST(BackgroundMap, barrierDistanceOfAHillIsItsHeight)
{
    std::vector<double> lightness(25, 0.0);
    lightness[12] = 16;
    EXPECT_EQ(valuesOf(barrierDistance(greys(5, lightness))),
        (std::vector<double> { 0, 0, 0, 0, 0, 0, 0.25, 0.5, 0.25, 0, 0, 0.5, 1, 0.5, 0, 0, 0.25,
            0.5, 0.25, 0, 0, 0, 0, 0, 0 }));
}

// Seven columns and rows, 16 but for the border and the middle. Smoothed, the middle column goes 4,
// 12, 14, 12 down to the middle; (2, 2) is 15, the border 4 at most. So the middle is at 12, but
// the way out leads over 14.
TEST(BackgroundMap, barrierDistanceOfAPitIsTheHeightOfItsWall)
{
    std::vector<double> lightness;
    for (int y = 0; y < 7; ++y) {
        for (int x = 0; x < 7; ++x) {
            const bool isBorder = x == 0 || x == 6 || y == 0 || y == 6;
            const bool isMiddle = x == 3 && y == 3;
            lightness.push_back(isBorder || isMiddle ? 0 : 16);
        }
    }
    const Cells<double> distances = barrierDistance(greys(7, lightness));
    EXPECT_EQ(distances.at(2, 2), 1);
    EXPECT_NEAR(distances.at(3, 2), (14 - 4) / (15.0 - 4), 1e-12);
    EXPECT_NEAR(distances.at(3, 3), (14 - 4) / (15.0 - 4), 1e-12);
    EXPECT_NEAR(distances.at(3, 1), (12 - 4) / (15.0 - 4), 1e-12);
}

// One row, which is the upper and the lower band: mean 3.75. As shares of the largest, distances to
// the left band are 0, 0, 1/2, 1, to the right band 1, 1, 1/2, 0, to the others 0.6, 0.6, 0.2, 1.
// The sums of the two smallest are 0.6, 0.6, 0.4, 1.
TEST(BackgroundMap, borderColourDistanceLeavesOutTheTwoBandsThatDifferMost)
{
    const std::vector<double> distances = valuesOf(borderColourDistance(greys(4, { 0, 0, 5, 10 })));
    ASSERT_EQ(distances.size(), 4U);
    EXPECT_NEAR(distances[0], (0.6 - 0.4) / 0.6, 1e-12);
    EXPECT_NEAR(distances[1], (0.6 - 0.4) / 0.6, 1e-12);
    EXPECT_EQ(distances[2], 0);
    EXPECT_EQ(distances[3], 1);
}

// Where a band varies, and along with which channel, decides how much a difference counts there.
TEST(BackgroundMap, borderColourDistanceCountsLessWhereABandVaries)
{
    Cells<Lab> colours(QSize(1, 4));
    const std::vector<Lab> column { { 10, 0, 0 }, { 20, 0, 0 }, { 15, 8, 0 }, { 23, 0, 0 } };
    std::copy(column.begin(), column.end(), colours.begin());
    const std::vector<double> distances = valuesOf(borderColourDistance(colours));
    // Left and right are the whole column: mean (17, 2, 0), covariances (24.5 + 16, -4, 12 + 16).
    const double determinant = 40.5 * 28 - 4 * 4;
    const auto toSides = [=](double l, double a) {
        return std::sqrt((28 * l * l + 2 * 4 * l * a + 40.5 * a * a) / determinant);
    };
    const double largest = toSides(-7, -2);
    // The upper band is the first cell: distances 0, 10, √(5² + 8²), 13 to it, over 4; the lower
    // 13, 3, √(8² + 8²), 0.
    const std::vector<std::vector<double>> ofCells {
        { 1, 1, 0, 1 },
        { toSides(3, -2) / largest, toSides(3, -2) / largest, 10 / 13.0, 3 / 13.0 },
        { toSides(-2, 6) / largest, toSides(-2, 6) / largest, std::sqrt(89) / 13,
            std::sqrt(128) / 13 },
        { toSides(6, -2) / largest, toSides(6, -2) / largest, 1, 0 },
    };
    std::vector<double> sums;
    for (std::vector<double> ofCell : ofCells) {
        std::sort(ofCell.begin(), ofCell.end());
        sums.push_back(ofCell[0] + ofCell[1]);
    }
    const auto [least, most] = std::minmax_element(sums.begin(), sums.end());
    for (std::size_t i = 0; i < sums.size(); ++i)
        EXPECT_NEAR(distances.at(i), (sums[i] - *least) / (*most - *least), 1e-12) << i;
}

// 5 × 5: a ring of 10 around a middle of 30, within zeros. Only the middle differs from all of its
// neighbours: the mean of least differences is 20 / 25. A step into the ring costs 10 − 0.8,
// another to the middle 20 − 0.8.
TEST(BackgroundMap, geodesicDistanceAddsUpTheStepsOnTheWayOut)
{
    const Cells<Lab> colours = greys(
        5, { 0, 0, 0, 0, 0, 0, 10, 10, 10, 0, 0, 10, 30, 10, 0, 0, 10, 10, 10, 0, 0, 0, 0, 0, 0 });
    const Cells<double> distances = geodesicDistance(colours, QSize(5, 5));
    EXPECT_EQ(distances.at(0, 2), 0);
    EXPECT_NEAR(distances.at(1, 2), 9.2 / 28.4, 1e-12);
    EXPECT_EQ(distances.at(2, 2), 1);
}

TEST(BackgroundMap, enlargesBetweenTheMiddlesOfCells)
{
    Cells<double> cells(QSize(2, 1));
    cells.at(1, 0) = 1;
    EXPECT_EQ(valuesOf(enlarged(cells, QSize(4, 2))),
        (std::vector<double> { 0, 0.25, 0.75, 1, 0, 0.25, 0.75, 1 }));
    QImage map(4, 2, QImage::Format_ARGB32);
    writeEnlarged(cells, map);
    EXPECT_EQ(support::reds(map), (std::vector { 0, 64, 191, 255, 0, 64, 191, 255 }));
    EXPECT_TRUE(support::isOpaqueGrey(map));
}

TEST(BackgroundMap, stretchesToReachFromZeroToOne)
{
    Cells<double> cells(QSize(3, 1));
    std::vector<double> values { 2, 6, 3 };
    std::copy(values.begin(), values.end(), cells.begin());
    stretch(cells);
    EXPECT_EQ(valuesOf(cells), (std::vector<double> { 0, 1, 0.25 }));
    Cells<double> flat(QSize(2, 1), 7);
    stretch(flat);
    EXPECT_EQ(valuesOf(flat), (std::vector<double> { 0, 0 }));
}
