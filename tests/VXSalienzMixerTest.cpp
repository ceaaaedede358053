#include <VXRegionOfInterest/VXSalienzMixer.h>

#include <VXRegionOfInterest/VXGaussROI.h>

#include "kernels/Blend.h"
#include "support/ImageAssert.h"
#include "support/MessageTrap.h"
#include "support/TestImages.h"

#include <climits>
#include <type_traits>

namespace {

const QSize unscaled;

// The value that one pixel gets when maps of these red values are blended.
int blendedRed(const std::vector<int>& reds, const QList<int>& weights)
{
    QList<QImage> maps;
    for (const int red : reds)
        maps.append(support::redPixel(red));
    return support::reds(VXSalienzMixer(unscaled).mix(maps, weights)).front();
}

} // namespace

TEST(VXSalienzMixer, isNeitherCopiedNorMoved)
{
    EXPECT_FALSE(std::is_copy_constructible_v<VXSalienzMixer>);
    EXPECT_FALSE(std::is_copy_assignable_v<VXSalienzMixer>);
    EXPECT_FALSE(std::is_move_constructible_v<VXSalienzMixer>);
    EXPECT_FALSE(std::is_polymorphic_v<VXSalienzMixer>);
}

TEST(VXSalienzMixer, holdsTheCentrePriorEnabledWithWeightTwo)
{
    const VXSalienzMixer mixer(unscaled);
    ASSERT_NE(dynamic_cast<VXGaussROI*>(mixer.roiMethod(Gauss)), nullptr);
    EXPECT_EQ(mixer.roiMethod(Gauss)->getWeight(), 2);
    EXPECT_TRUE(mixer.isMethodEnabled(Gauss));
}

TEST(VXSalienzMixer, switchesMethodsAndSetsWeightsThroughTheEntry)
{
    VXSalienzMixer mixer(unscaled);
    mixer.setMethodWeight(Gauss, -7);
    EXPECT_EQ(mixer.roiMethod(Gauss)->getWeight(), -7);
    mixer.setMethodEnabled(Gauss, false);
    EXPECT_FALSE(mixer.isMethodEnabled(Gauss));
    EXPECT_FALSE(mixer.roiMethod(Gauss)->isEnabled());
    mixer.setMethodEnabled(Gauss, true);
    EXPECT_TRUE(mixer.isMethodEnabled(Gauss));
}

TEST(VXSalienzMixer, ignoresOperationsOnAMethodThatItDoesNotHold)
{
    VXSalienzMixer mixer(unscaled);
    for (const auto method : { VeryImportantAreas, static_cast<VXSalienzMethod>(7) }) {
        mixer.setMethodWeight(method, 5);
        mixer.setMethodEnabled(method, true);
        EXPECT_FALSE(mixer.isMethodEnabled(method));
        EXPECT_EQ(mixer.roiMethod(method), nullptr);
    }
}

TEST(VXSalienzMixer, gathersMapsAndWeightsOfTheEnabledMethods)
{
    VXSalienzMixer mixer(unscaled);
    EXPECT_EQ(mixer.gatherResults(support::noise(4, 3, 1)).size(), 1);
    EXPECT_EQ(mixer.gatherWeights(), QList<int> { 2 });
    mixer.setMethodEnabled(Gauss, false);
    EXPECT_TRUE(mixer.gatherResults(support::noise(4, 3, 1)).isEmpty());
    EXPECT_TRUE(mixer.gatherWeights().isEmpty());
}

TEST(VXSalienzMixer, keepsTheWeightOfAMethodWhoseMapIsNull)
{
    const VXSalienzMixer mixer(unscaled);
    EXPECT_TRUE(mixer.gatherResults(QImage()).isEmpty());
    EXPECT_EQ(mixer.gatherWeights(), QList<int> { 2 });
}

TEST(VXSalienzMixer, analyzeReturnsTheInputItselfWhenEveryMethodIsOff)
{
    VXSalienzMixer mixer(QSize(8, 8));
    mixer.setMethodEnabled(Gauss, false);
    const QImage image = support::noise(20, 10, 2).convertToFormat(QImage::Format_Indexed8);
    const QImage result = mixer.analyze(image);
    EXPECT_TRUE(support::sameImage(image, result));
    EXPECT_EQ(result.constBits(), image.constBits());
}

TEST(VXSalienzMixer, analyzeReturnsASingleMapUnchangedWhateverItsWeight)
{
    VXSalienzMixer mixer(unscaled);
    const QImage image = support::noise(20, 10, 2);
    for (const int weight : { -10, 0, 2 }) {
        mixer.setMethodWeight(Gauss, weight);
        EXPECT_TRUE(support::sameImage(VXGaussROI().evaluate(image), mixer.analyze(image)));
    }
}

TEST(VXSalienzMixer, analyzeScalesIntoTheWorkingSizeAndKeepsTheAspectRatio)
{
    const QImage square = support::noise(1280, 1280, 3);
    EXPECT_EQ(VXSalienzMixer(QSize(640, 480)).analyze(square).size(), QSize(480, 480));
    EXPECT_EQ(VXSalienzMixer(QSize()).analyze(square).size(), QSize(1280, 1280));
}

TEST(VXSalienzMixer, analyzeScalesSmallPicturesUp)
{
    EXPECT_EQ(
        VXSalienzMixer(QSize(640, 480)).analyze(support::noise(4, 3, 3)).size(), QSize(640, 480));
}

TEST(VXSalienzMixer, analyzeDoesNotScaleIntoAnInvalidSize)
{
    EXPECT_EQ(
        VXSalienzMixer(QSize(-1, 10)).analyze(support::noise(30, 20, 3)).size(), QSize(30, 20));
}

TEST(VXSalienzMixer, analyzeKeepsAtLeastOnePixelOfAnExtremeShape)
{
    EXPECT_EQ(
        VXSalienzMixer(QSize(64, 48)).analyze(support::noise(1, 20000, 3)).size(), QSize(1, 48));
}

TEST(VXSalienzMixer, analyzeReturnsTheInputWhenTheWorkingSizeHasAZeroSide)
{
    const QImage image = support::noise(30, 20, 3);
    for (const QSize& size : { QSize(0, 0), QSize(0, 10), QSize(10, 0) })
        EXPECT_TRUE(support::sameImage(image, VXSalienzMixer(size).analyze(image)));
}

TEST(VXSalienzMixer, acceptsNullAndEmptyPicturesWithoutAMessage)
{
    const support::MessageTrap trap;
    for (const QSize& size : { unscaled, QSize(0, 0), QSize(640, 480) }) {
        VXSalienzMixer mixer(size);
        EXPECT_TRUE(mixer.analyze(QImage()).isNull());
        EXPECT_TRUE(mixer.analyze(QImage(0, 7, QImage::Format_RGB32)).isNull());
        EXPECT_TRUE(mixer.mix({ QImage() }, { 1 }).isNull());
        EXPECT_TRUE(mixer.mix({ QImage(), QImage() }, { 1, 2 }).isNull());
    }
    EXPECT_TRUE(trap.texts().isEmpty());
}

TEST(VXSalienzMixer, analyzeChangesNoSetting)
{
    VXSalienzMixer mixer(QSize(64, 48));
    mixer.setMethodWeight(Gauss, 9);
    mixer.analyze(support::noise(30, 20, 3));
    EXPECT_EQ(mixer.roiMethod(Gauss)->getWeight(), 9);
    EXPECT_TRUE(mixer.isMethodEnabled(Gauss));
}

TEST(VXSalienzMixer, mixWeighsSubtractsAndDividesByThePositiveWeights)
{
    // (4000 + 510 - 2550 + 1000) / 32 = 2960 / 32
    EXPECT_EQ(blendedRed({ 200, 255, 255, 100 }, { 20, 2, -10, 10 }), 92);
}

TEST(VXSalienzMixer, mixTruncatesAndClamps)
{
    EXPECT_EQ(blendedRed({ 1, 0 }, { 31, 1 }), 0) << "31 / 32";
    // 2³¹ - 1 twice, 33 and 1 make a divisor of 32 modulo 2³².
    const QList<int> wrappingTo32 { INT_MAX, INT_MAX, 33, 1 };
    EXPECT_EQ(blendedRed({ 0, 0, 248, 7 }, wrappingTo32), 255) << "8191 / 32";
    EXPECT_EQ(blendedRed({ 0, 0, 248, 8 }, wrappingTo32), 255) << "8192 / 32";
    EXPECT_EQ(blendedRed({ 0, 0, 247, 8 }, wrappingTo32), 254) << "8159 / 32";
}

TEST(VXSalienzMixer, mixWritesANegativeQuotientAsZero)
{
    EXPECT_EQ(blendedRed({ 10, 255 }, { 20, -10 }), 0);
}

TEST(VXSalienzMixer, mixDividesByOneWhenNoWeightIsPositive)
{
    EXPECT_EQ(blendedRed({ 200, 100 }, { -2, -1 }), 0);
    EXPECT_EQ(blendedRed({ 200, 100 }, { 0, -1 }), 0);
    EXPECT_EQ(blendedRed({ 200, 100 }, { 0, 0 }), 0);
    // Only a sum that wraps is positive here: 2 · -INT_MIN wraps to 0, 255 · INT_MIN to INT_MIN.
    EXPECT_EQ(blendedRed({ 2, 0 }, { INT_MIN, 0 }), 0);
    EXPECT_EQ(blendedRed({ 3, 2 }, { -INT_MAX, INT_MIN }), 0) << "-3 · INT_MAX is INT_MIN + 3";
    EXPECT_EQ(blendedRed({ 2, 0 }, { -INT_MAX, 0 }), 2) << "-2 · INT_MAX wraps to 2";
    EXPECT_EQ(blendedRed({ 255, 255 }, { -INT_MAX - 1, -INT_MAX }), 255) << "wraps to 255";
}

TEST(VXSalienzMixer, mixDividesByOneWhenThePositiveWeightsWrapToZero)
{
    EXPECT_EQ(blendedRed({ 0, 0, 60 }, { INT_MAX, INT_MAX, 2 }), 120);
}

TEST(VXSalienzMixer, mixDividesByANegativeDivisorWhenThePositiveWeightsWrap)
{
    const QList<int> wrappingToMinusOne { INT_MAX, INT_MAX, 1 };
    EXPECT_EQ(blendedRed({ 1, 1, 0 }, wrappingToMinusOne), 2) << "-2 / -1";
    EXPECT_EQ(blendedRed({ 0, 0, 9 }, wrappingToMinusOne), 0) << "9 / -1";
    EXPECT_EQ(blendedRed({ 1, 0, 1 }, wrappingToMinusOne), 0) << "INT_MIN / -1 wraps to INT_MIN";
    EXPECT_EQ(blendedRed({ 1, 1, 0 }, { INT_MAX, INT_MAX, 0 }), 1) << "-2 / -2";
}

TEST(VXSalienzMixer, mixCountsSurplusWeightsInTheDivisorOnly)
{
    EXPECT_EQ(blendedRed({ 100 }, { 1, 3 }), 25);
}

TEST(VXSalienzMixer, mixTakesMissingWeightsAsZero)
{
    EXPECT_EQ(blendedRed({ 100, 200 }, { 1 }), 100);
    EXPECT_EQ(blendedRed({ 100, 200 }, {}), 0);
}

TEST(VXSalienzMixer, mixOfNoMapsIsNull)
{
    EXPECT_TRUE(VXSalienzMixer(unscaled).mix({}, {}).isNull());
    EXPECT_TRUE(VXSalienzMixer(unscaled).mix({}, { 1, 2 }).isNull());
}

TEST(VXSalienzMixer, mixTakesMapsOfOtherSizesAsBlackBeyondTheirEdgesAndCutsThemOff)
{
    const QImage first = support::imageOfReds(2, { 10, 20, 30, 40 });
    const QImage smaller = support::redPixel(100);
    const QImage wider = support::imageOfReds(3, { 1, 2, 3 });
    const QImage blended
        = VXSalienzMixer(unscaled).mix({ first, smaller, wider, QImage() }, { 1, 1, 1, 1 });
    EXPECT_EQ(
        support::reds(blended), (std::vector { (10 + 100 + 1) / 4, (20 + 2) / 4, 30 / 4, 40 / 4 }));
}

TEST(VXSalienzMixer, mixReadsRedOnlyAndWritesOpaqueGrey)
{
    const QImage blended
        = VXSalienzMixer(unscaled).mix({ support::imageOfReds(3, { 0, 128, 255 }) }, { 1 });
    EXPECT_EQ(blended.format(), QImage::Format_ARGB32);
    EXPECT_EQ(support::reds(blended), (std::vector { 0, 128, 255 }));
    EXPECT_TRUE(support::isOpaqueGrey(blended));
}

TEST(VXSalienzMixer, mixConvertsMapsOfOtherDepths)
{
    VXSalienzMixer mixer(unscaled);
    const QImage map = support::noise(9, 5, 4);
    for (const QImage::Format format : { QImage::Format_Grayscale8, QImage::Format_RGB888,
             QImage::Format_Indexed8, QImage::Format_RGBA64 }) {
        const QImage other = map.convertToFormat(format);
        EXPECT_TRUE(support::sameImage(
            mixer.mix({ map, other.convertToFormat(QImage::Format_ARGB32) }, { 3, 5 }),
            mixer.mix({ map, other }, { 3, 5 })));
    }
}

TEST(VXSalienzMixer, mixLeavesItsMapsAlone)
{
    const QImage map = support::noise(9, 5, 4);
    const QImage untouched = map.copy();
    VXSalienzMixer(unscaled).mix({ map, map }, { 3, -5 });
    EXPECT_TRUE(support::sameImage(untouched, map));
}

TEST(VXSalienzMixer, mixOfManyMapsEqualsThePlainBlend)
{
    const QList<QImage> maps { support::noise(37, 11, 1), support::noise(37, 11, 2),
        support::noise(37, 11, 3), support::noise(37, 11, 4) };
    const QList<int> weights { 20, 2, -10, 10 };
    QImage expected(37, 11, QImage::Format_ARGB32);
    vx::kernels::reference::blend(maps, weights, expected);
    EXPECT_TRUE(support::sameImage(expected, VXSalienzMixer(unscaled).mix(maps, weights)));
}
