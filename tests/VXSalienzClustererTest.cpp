#include <VXRegionOfInterest/VXSalienzClusterer.h>

#include "kernels/Cubes.h"
#include "support/ImageAssert.h"
#include "support/MessageTrap.h"
#include "support/Random.h"
#include "support/TestImages.h"

#include <climits>
#include <type_traits>

namespace {

QImage filled(int width, int height, int level)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(qRgb(level, level, level));
    return image;
}

VXSalienzClusterer clustererOf(int cubesH, int cubesV)
{
    VXSalienzClusterer clusterer;
    clusterer.setCountCubesH(cubesH);
    clusterer.setCountCubesV(cubesV);
    return clusterer;
}

// The clusterer's steps over the plain kernels, for counts that fit and an average that is not 0.
QImage plainClustered(const QImage& words, int cubesH, int cubesV)
{
    const int total = vx::kernels::reference::totalRed(words);
    const int average = total / cubesV / cubesH;
    QImage clustered = filled(words.width(), words.height(), 0);
    if (average != 0)
        vx::kernels::reference::paintCubes(words,
            QSize(words.width() / cubesV, words.height() / cubesH),
            { average, total / words.width() / words.height() }, clustered);
    return clustered;
}

} // namespace

TEST(VXSalienzClusterer, hasTenByTenCubesWhenFresh)
{
    EXPECT_EQ(VXSalienzClusterer().countCubes(), QSize(10, 10));
    EXPECT_TRUE(std::has_virtual_destructor_v<VXSalienzClusterer>);
}

TEST(VXSalienzClusterer, storesAnyCount)
{
    const VXSalienzClusterer clusterer = clustererOf(3, 7);
    EXPECT_EQ(clusterer.countCubesH(), 3);
    EXPECT_EQ(clusterer.countCubesV(), 7);
    EXPECT_EQ(clusterer.countCubes(), QSize(3, 7));
    EXPECT_EQ(clustererOf(-4, INT_MIN).countCubes(), QSize(-4, INT_MIN));
}

TEST(VXSalienzClusterer, cubeSizeCrossesTheAxes)
{
    EXPECT_EQ(clustererOf(10, 4).cubeSize(QSize(200, 100)), QSize(25, 20));
}

TEST(VXSalienzClusterer, cubeSizeIsZeroWhereACountIsZero)
{
    EXPECT_EQ(clustererOf(0, 4).cubeSize(QSize(200, 100)), QSize(25, 0));
    EXPECT_EQ(clustererOf(10, 0).cubeSize(QSize(200, 100)), QSize(0, 20));
}

TEST(VXSalienzClusterer, cubeSizeDividesByNegativeCountsAndWraps)
{
    EXPECT_EQ(clustererOf(10, -4).cubeSize(QSize(200, 103)), QSize(-25, 20));
    EXPECT_EQ(clustererOf(-1, -1).cubeSize(QSize(7, INT_MIN)), QSize(INT_MIN, -7));
}

TEST(VXSalienzClusterer, aCubeThatHoldsTooMuchWraps)
{
    // 255 · 362² · 128 is below 2³², 255 · 363² · 128 is beyond.
    EXPECT_EQ(qRed(clustererOf(1, 1).cluster(filled(362, 362, 255)).pixel(0, 0)), 128);
    EXPECT_EQ(qRed(clustererOf(1, 1).cluster(filled(363, 363, 255)).pixel(0, 0)), 0);
}

TEST(VXSalienzClusterer, totalSalienceAddsTheRedValues)
{
    EXPECT_EQ(VXSalienzClusterer().totalSalience(support::imageOfReds(2, { 1, 2, 3, 4 })), 10);
    EXPECT_EQ(VXSalienzClusterer().totalSalience(QImage()), 0);
}

TEST(VXSalienzClusterer, totalSalienceWrapsAt32Bits)
{
    const QImage white = filled(4096, 2100, 255); // 2193408000 is beyond 2³¹
    EXPECT_EQ(VXSalienzClusterer().totalSalience(white), static_cast<int>(2193408000U));
}

TEST(VXSalienzClusterer, aUniformMapIsAverageEverywhere)
{
    EXPECT_TRUE(support::sameImage(
        filled(100, 100, 128), VXSalienzClusterer().cluster(filled(100, 100, 100))));
}

TEST(VXSalienzClusterer, whatRemainsBesideTheCubesIsANarrowerAndDarkerCube)
{
    const QImage clustered = VXSalienzClusterer().cluster(filled(105, 100, 100));
    // An average cube of 10.5 columns holds 10500, so whole cubes get 10000 · 128 / 10500.
    for (int x = 0; x < 105; ++x)
        EXPECT_EQ(qRed(clustered.pixel(x, 50)), x < 100 ? 121 : 5000 * 128 / 10500) << x;
}

TEST(VXSalienzClusterer, dividesTheHeightByTheHorizontalCount)
{
    // Bright upper half; with counts H = 2 and V = 1 the map is cut into two rows.
    QImage map = filled(8, 8, 10);
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 8; ++x)
            map.setPixel(x, y, qRgb(20, 20, 20));
    }
    const QImage rows = clustererOf(2, 1).cluster(map);
    EXPECT_EQ(qRed(rows.pixel(0, 0)), 640 * 128 / 480);
    EXPECT_EQ(qRed(rows.pixel(7, 7)), 320 * 128 / 480);
    EXPECT_TRUE(support::sameImage(filled(8, 8, 128), clustererOf(1, 2).cluster(map)));
}

TEST(VXSalienzClusterer, boostsACubeWithAFewVeryBrightPixels)
{
    // Two cubes of equal salience, one spread evenly, one gathered in a single pixel.
    QImage map = filled(20, 10, 0);
    for (int i = 0; i < 100; ++i)
        map.setPixel(i % 10, i / 10, qRgb(2, 2, 2));
    map.setPixel(15, 5, qRgb(200, 200, 200));
    const QImage clustered = clustererOf(1, 2).cluster(map);
    EXPECT_EQ(qRed(clustered.pixel(0, 0)), 128);
    EXPECT_EQ(qRed(clustered.pixel(15, 5)), 255);
}

TEST(VXSalienzClusterer, mapsWithoutSalienceOrWithoutCubesAreOpaqueBlack)
{
    const QImage map = support::noise(30, 20, 1);
    const QImage black = filled(30, 20, 0);
    EXPECT_TRUE(support::sameImage(black, VXSalienzClusterer().cluster(black)));
    QImage faint = black;
    faint.setPixel(3, 3, qRgb(99, 99, 99)); // below one for each of the hundred cubes
    EXPECT_TRUE(support::sameImage(black, VXSalienzClusterer().cluster(faint)));
    for (const auto& [h, v] :
        { std::pair(0, 10), std::pair(10, 0), std::pair(-1, 10), std::pair(INT_MIN, INT_MIN),
            std::pair(21, 10), std::pair(10, 31), std::pair(INT_MAX, INT_MAX) })
        EXPECT_TRUE(support::sameImage(black, clustererOf(h, v).cluster(map))) << h << ", " << v;
}

TEST(VXSalienzClusterer, returnsANullMapForANullMapWithoutAMessage)
{
    const support::MessageTrap trap;
    EXPECT_TRUE(VXSalienzClusterer().cluster(QImage()).isNull());
    EXPECT_TRUE(VXSalienzClusterer().cluster(QImage(0, 5, QImage::Format_RGB32)).isNull());
    EXPECT_TRUE(trap.texts().isEmpty());
}

TEST(VXSalienzClusterer, theAverageActsAsUnsignedWhenTheTotalWraps)
{
    const QImage white = filled(4096, 2100, 255);
    EXPECT_TRUE(
        support::sameImage(plainClustered(white, 10, 10), VXSalienzClusterer().cluster(white)));
    EXPECT_EQ(qRed(VXSalienzClusterer().cluster(white).pixel(0, 0)), 0)
        << "the average is below 0, so as unsigned it is beyond any cube";
}

TEST(VXSalienzClusterer, aCubeWhosePixelsTimesRowsWrapToZeroIsBlack)
{
    const QImage column = filled(1, 65536, 9); // 65536 pixels times 65536 rows
    EXPECT_TRUE(support::sameImage(filled(1, 65536, 0), clustererOf(1, 1).cluster(column)));
    EXPECT_TRUE(
        support::sameImage(filled(1, 65535, 128), clustererOf(1, 1).cluster(filled(1, 65535, 9))));
}

TEST(VXSalienzClusterer, convertsOtherDepthsToArgb32)
{
    for (int format = 1; format < QImage::NImageFormats; ++format) {
        const QImage map
            = support::noise(40, 30, 2).convertToFormat(static_cast<QImage::Format>(format));
        const QImage words = map.depth() == 32 ? map : map.convertToFormat(QImage::Format_ARGB32);
        EXPECT_TRUE(
            support::sameImage(plainClustered(words, 10, 10), VXSalienzClusterer().cluster(map)))
            << format;
    }
}

TEST(VXSalienzClusterer, equalsThePlainClustererForEverySize)
{
    support::Random random(5);
    for (int height = 1; height <= 40; ++height) {
        for (int width = 1; width <= 40; ++width) {
            const int cubesH = 1 + random.below(height);
            const int cubesV = 1 + random.below(width);
            for (const QImage& map : support::variedImages(width, height, random.word()))
                ASSERT_TRUE(support::sameImage(
                    plainClustered(map, cubesH, cubesV), clustererOf(cubesH, cubesV).cluster(map)))
                    << width << " x " << height << ", " << cubesH << " by " << cubesV;
        }
    }
}

TEST(VXSalienzClusterer, equalsThePlainClustererForSparseMaps)
{
    support::Random random(6);
    for (int round = 0; round < 200; ++round) {
        QImage map = filled(60, 45, random.below(3));
        for (int i = random.below(60); i > 0; --i)
            map.setPixel(random.below(60), random.below(45), qRgb(random.below(256), 0, 0));
        ASSERT_TRUE(support::sameImage(plainClustered(map, 5, 6), clustererOf(5, 6).cluster(map)));
    }
    const support::PaddedImage padded(support::noise(640, 480, 7));
    EXPECT_TRUE(support::sameImage(
        plainClustered(padded.image(), 12, 8), clustererOf(12, 8).cluster(padded.image())));
}
