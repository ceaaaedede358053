#include <VXRegionOfInterest/VXSalienzAchanta.h>

#include "kernels/dilation/Dilation.h"
#include "kernels/surround/SurroundContrast.h"
#include "support/GreyImage.h"
#include "support/ImageAssert.h"
#include "support/MessageTrap.h"
#include "support/Random.h"
#include "support/TestImages.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <limits>

namespace {

using Plane = QList<double>;
using Rows = QList<QList<double>>;

// The method from its two reference kernels.
QImage plainSalience(const QImage& source)
{
    const QImage words
        = source.depth() == 32 ? source : source.convertToFormat(QImage::Format_ARGB32);
    const QImage contrast = support::greyImage(words.size(),
        [&](QImage& greyMap) { vx::kernels::reference::surroundContrast(words, greyMap); });
    return vx::kernels::reference::dilate(contrast, 45, 150);
}

QImage filled(int width, int height, const QColor& colour)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

testing::AssertionResult equalsPlain(const QImage& source)
{
    return support::sameImage(plainSalience(source), VXSalienzAchanta().evaluate(source));
}

} // namespace

TEST(VXSalienzAchanta, isEnabledWithWeightZeroWhenFresh)
{
    VXSalienzAchanta method;
    EXPECT_TRUE(method.isEnabled());
    EXPECT_EQ(method.getWeight(), 0);
}

TEST(VXSalienzAchanta, aSinglePixelIsBlack)
{
    EXPECT_EQ(VXSalienzAchanta().evaluate(filled(1, 1, Qt::red)).pixel(0, 0), 0xFF000000U);
}

TEST(VXSalienzAchanta, aUniformImageIsBlack)
{
    for (const QSize& size : { QSize(1, 9), QSize(9, 1), QSize(40, 30), QSize(41, 31) }) {
        const QImage map
            = VXSalienzAchanta().evaluate(filled(size.width(), size.height(), QColor(9, 200, 77)));
        EXPECT_EQ(support::reds(map),
            std::vector<int>(static_cast<std::size_t>(size.width() * size.height()), 0));
        EXPECT_TRUE(support::isOpaqueGrey(map));
    }
}

TEST(VXSalienzAchanta, surroundsOfFourColumnsSpanWhatTheyShould)
{
    // One row of greys far apart: the levels follow from the spans 0-0, 0-2, 0-3 and 2-3 by hand.
    const std::array<int, 4> greys { 0, 40, 200, 120 };
    QImage row(4, 1, QImage::Format_RGB32);
    std::array<double, 4> y {};
    for (int x = 0; x < 4; ++x) {
        const int grey = greys.at(static_cast<std::size_t>(x));
        row.setPixel(x, 0, qRgb(grey, grey, grey));
        y.at(static_cast<std::size_t>(x)) = grey;
    }
    const std::array<double, 4> means { y[0], (y[0] + y[1] + y[2]) / 3,
        (y[0] + y[1] + y[2] + y[3]) / 4, (y[2] + y[3]) / 2 };
    const std::array<double, 4> smoothed { (2 * y[0] + y[1]) / 3, (y[0] + 2 * y[1] + y[2]) / 4,
        (y[1] + 2 * y[2] + y[3]) / 4, (y[2] + 2 * y[3]) / 3 };
    std::array<double, 4> contrast {};
    for (std::size_t x = 0; x < 4; ++x)
        contrast.at(x) = (means.at(x) - smoothed.at(x)) * (means.at(x) - smoothed.at(x));
    const auto [least, greatest] = std::minmax_element(contrast.begin(), contrast.end());

    QImage greyMap = vx::kernels::uninitializedGreyMap(row.size());
    vx::kernels::surroundContrast(row, greyMap);
    for (int x = 0; x < 4; ++x) {
        const double above = contrast.at(static_cast<std::size_t>(x)) - *least;
        EXPECT_NEAR(vx::kernels::greyRow(greyMap, 0)[x], above * 255 / (*greatest - *least), 1)
            << x;
    }
}

TEST(VXSalienzAchanta, theGreatestContrastIs255)
{
    support::Random random(3);
    for (int round = 0; round < 50; ++round) {
        const QImage map = VXSalienzAchanta().evaluate(
            support::noise(2 + random.below(40), 2 + random.below(40), random.word()));
        const std::vector<int> levels = support::reds(map);
        EXPECT_EQ(*std::max_element(levels.begin(), levels.end()), 255);
    }
}

TEST(VXSalienzAchanta, levelsAbove150SpreadInCrossesWithArmsOf45)
{
    QImage image = filled(201, 201, Qt::gray);
    image.setPixel(100, 100, qRgb(255, 0, 0));
    const QImage map = VXSalienzAchanta().evaluate(image);
    EXPECT_EQ(qRed(map.pixel(100, 100)), 255);
    EXPECT_EQ(qRed(map.pixel(55, 100)), 255);
    EXPECT_EQ(qRed(map.pixel(100, 145)), 255);
    EXPECT_EQ(qRed(map.pixel(53, 100)), 0);
    EXPECT_EQ(qRed(map.pixel(60, 60)), 0);
}

TEST(VXSalienzAchanta, ignoresAlpha)
{
    const QImage image = support::noise(30, 20, 4);
    QImage opaque = image;
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 30; ++x)
            opaque.setPixel(x, y, image.pixel(x, y) | 0xFF000000U);
    }
    EXPECT_TRUE(support::sameImage(
        VXSalienzAchanta().evaluate(opaque), VXSalienzAchanta().evaluate(image)));
}

TEST(VXSalienzAchanta, returnsANullMapForANullImageWithoutAMessage)
{
    const support::MessageTrap trap;
    EXPECT_TRUE(VXSalienzAchanta().evaluate(QImage()).isNull());
    EXPECT_TRUE(VXSalienzAchanta().evaluate(QImage(0, 3, QImage::Format_RGB32)).isNull());
    EXPECT_TRUE(trap.texts().isEmpty());
}

TEST(VXSalienzAchanta, equalsThePlainMethodForEverySize)
{
    for (int height = 1; height <= 40; ++height) {
        for (int width = 1; width <= 40; ++width) {
            const auto seed = static_cast<unsigned>(width * 41 + height);
            const auto images = support::variedImages(width, height, seed);
            ASSERT_TRUE(equalsPlain(images[seed % images.size()])) << width << " x " << height;
            ASSERT_TRUE(equalsPlain(images[0])) << width << " x " << height;
        }
    }
}

TEST(VXSalienzAchanta, equalsThePlainMethodForLargerImages)
{
    for (const QSize& size : { QSize(640, 480), QSize(321, 243), QSize(2, 700), QSize(700, 2) }) {
        for (const QImage& image : support::variedImages(size.width(), size.height(), 6))
            EXPECT_TRUE(equalsPlain(image));
    }
}

TEST(VXSalienzAchanta, equalsThePlainMethodInEveryFormat)
{
    for (int format = 1; format < QImage::NImageFormats; ++format)
        EXPECT_TRUE(equalsPlain(
            support::noise(33, 21, 7).convertToFormat(static_cast<QImage::Format>(format))))
            << format;
    const support::PaddedImage padded(support::noise(33, 21, 8));
    EXPECT_TRUE(equalsPlain(padded.image()));
}

TEST(VXSalienzAchanta, createsListsOfZeros)
{
    const VXSalienzAchanta method;
    EXPECT_EQ(method.createZeroedList(3), (Plane { 0, 0, 0 }));
    EXPECT_EQ(method.createZeroed2dList(2, 3), (Rows { { 0, 0 }, { 0, 0 }, { 0, 0 } }));
    EXPECT_EQ(method.createZeroed2dList(0, 2), (Rows { {}, {} }));
    for (const int count : { 0, -1, INT_MIN }) {
        EXPECT_TRUE(method.createZeroedList(count).isEmpty());
        EXPECT_TRUE(method.createZeroed2dList(4, count).isEmpty());
    }
}

TEST(VXSalienzAchanta, smoothsAlongRowsAndThenColumnsAndNormalisesAtTheBorders)
{
    VXSalienzAchanta method;
    Plane smoothed = method.createZeroedList(6);
    method.gaussianSmooth({ 4, 8, 12, 40, 80, 120 }, 3, 2, { 1, 2, 1 }, smoothed);
    const Plane along { 16.0 / 3, 8, 32.0 / 3, 160.0 / 3, 80, 320.0 / 3 };
    for (int x = 0; x < 3; ++x) {
        EXPECT_DOUBLE_EQ(smoothed.at(x), (2 * along.at(x) + along.at(x + 3)) / 3);
        EXPECT_DOUBLE_EQ(smoothed.at(x + 3), (along.at(x) + 2 * along.at(x + 3)) / 3);
    }
}

TEST(VXSalienzAchanta, aMissingTapOfAnEvenKernelCountsZeroInBothSums)
{
    VXSalienzAchanta method;
    Plane smoothed = method.createZeroedList(3);
    method.gaussianSmooth({ 10, 20, 30 }, 3, 1, { 1, 3 }, smoothed);
    EXPECT_EQ(smoothed, (Plane { 10, (10 + 60) / 4.0, (20 + 90) / 4.0 }));
}

TEST(VXSalienzAchanta, aMissingTapIsLeftOutEvenWhereTheValueIsInfinite)
{
    VXSalienzAchanta method;
    Plane smoothed = method.createZeroedList(2);
    method.gaussianSmooth({ 1, std::numeric_limits<double>::infinity() }, 2, 1, { 1, 1 }, smoothed);
    EXPECT_EQ(smoothed.at(0), 1);
}

TEST(VXSalienzAchanta, smoothingWithoutWeightsGivesNoNumbers)
{
    VXSalienzAchanta method;
    Plane smoothed = method.createZeroedList(2);
    method.gaussianSmooth({ 1, 2 }, 2, 1, {}, smoothed);
    EXPECT_TRUE(std::isnan(smoothed.at(0)) && std::isnan(smoothed.at(1)));
}

TEST(VXSalienzAchanta, smoothingLeavesPlanesAloneThatDoNotFit)
{
    VXSalienzAchanta method;
    for (const auto& [width, height] : { std::pair(3, 2), std::pair(2, 0), std::pair(0, 2),
             std::pair(-1, -4), std::pair(INT_MAX, INT_MAX) }) {
        Plane smoothed { 7, 7, 7, 7 };
        method.gaussianSmooth({ 1, 2, 3, 4 }, width, height, { 1, 2, 1 }, smoothed);
        EXPECT_EQ(smoothed, (Plane { 7, 7, 7, 7 }));
    }
}

TEST(VXSalienzAchanta, smoothsAPlaneIntoItself)
{
    VXSalienzAchanta method;
    const Plane plane { 1, 5, 2, 8, 3, 9 };
    Plane apart = method.createZeroedList(6);
    method.gaussianSmooth(plane, 3, 2, { 1, 2, 1 }, apart);
    Plane itself = plane;
    method.gaussianSmooth(itself, 3, 2, { 1, 2, 1 }, itself);
    EXPECT_EQ(itself, apart);
}

TEST(VXSalienzAchanta, integralImageHoldsTheSumsFromTheUpperLeft)
{
    VXSalienzAchanta method;
    Rows integral = method.createZeroed2dList(3, 2);
    method.integralImage({ 1, 2, 3, 10, 20, 30 }, 3, 2, integral);
    EXPECT_EQ(integral, (Rows { { 1, 3, 6 }, { 11, 33, 66 } }));
}

TEST(VXSalienzAchanta, integralImageLeavesRowsAloneThatDoNotFit)
{
    VXSalienzAchanta method;
    Rows ragged { { 7, 7 }, { 7 } };
    method.integralImage({ 1, 2, 3, 4 }, 2, 2, ragged);
    EXPECT_EQ(ragged, (Rows { { 7, 7 }, { 7 } }));
    Rows fitting { { 7, 7 }, { 7, 7 } };
    method.integralImage({ 1, 2, 3 }, 2, 2, fitting);
    EXPECT_EQ(fitting, (Rows { { 7, 7 }, { 7, 7 } }));
}

TEST(VXSalienzAchanta, integralSumAddsUpEveryRectangle)
{
    VXSalienzAchanta method;
    support::Random random(9);
    Plane plane;
    for (int i = 0; i < 7 * 5; ++i)
        plane.append(random.below(100)); // whole numbers, so any order gives the same sum
    Rows integral = method.createZeroed2dList(7, 5);
    method.integralImage(plane, 7, 5, integral);
    for (int y1 = 0; y1 < 5; ++y1) {
        for (int x1 = 0; x1 < 7; ++x1) {
            for (int y2 = y1; y2 < 5; ++y2) {
                double rowsSum = 0;
                for (int x2 = x1; x2 < 7; ++x2) {
                    for (int y = y1; y <= y2; ++y)
                        rowsSum += plane.at(y * 7 + x2);
                    ASSERT_EQ(method.integralSum(integral, x1, y1, x2, y2), rowsSum);
                }
            }
        }
    }
}

TEST(VXSalienzAchanta, integralSumOrdersItsTerms)
{
    // (A + D) - B - C rounds differently from (A - B) - C + D.
    const Rows integral { { 1e-17, 0.75 }, { 0.5, 1.0 } };
    EXPECT_EQ(VXSalienzAchanta().integralSum(integral, 1, 1, 1, 1), 1.0 + 1e-17 - 0.75 - 0.5);
    EXPECT_NE(1.0 + 1e-17 - 0.75 - 0.5, 1.0 - 0.75 - 0.5 + 0.25 + 1e-17);
}

TEST(VXSalienzAchanta, integralSumBeyondTheImageIsZero)
{
    VXSalienzAchanta method;
    const Rows integral { { 1, 3 }, { 11, 33 } };
    EXPECT_EQ(method.integralSum(integral, 0, 0, 2, 1), 0);
    EXPECT_EQ(method.integralSum(integral, 0, 0, 1, 2), 0);
    EXPECT_EQ(method.integralSum(integral, 0, 0, -1, 1), 0);
    EXPECT_EQ(method.integralSum(integral, 5, 0, 1, 1), 0);
    EXPECT_EQ(method.integralSum(integral, INT_MIN, INT_MIN, 1, 1), 33);
    EXPECT_EQ(method.integralSum(integral, INT_MAX, INT_MAX, INT_MAX, INT_MAX), 0);
    EXPECT_EQ(method.integralSum({}, 0, 0, 0, 0), 0);
    EXPECT_EQ(method.integralSum({ { 1, 3 }, { 11 } }, 0, 0, 1, 1), 0);
}
