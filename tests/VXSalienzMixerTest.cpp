#include <VXRegionOfInterest/VXSalienzMixer.h>

#include <VXRegionOfInterest/VXGaussROI.h>
#include <VXRegionOfInterest/VXHistogramROI.h>
#include <VXRegionOfInterest/VXSalienzAchanta.h>
#include <VXRegionOfInterest/VXSobelROI.h>
#include <VXRegionOfInterest/VXVeryImportantAreasROI.h>

#include "kernels/blend/Blend.h"
#include "support/ImageAssert.h"
#include "support/Memory.h"
#include "support/MessageTrap.h"
#include "support/PlainHistogramROI.h"
#include "support/Random.h"
#include "support/TestImages.h"

#include <climits>
#include <memory>
#include <thread>
#include <type_traits>
#include <utility>

namespace {

const QSize unscaled;

void disableAll(VXSalienzMixer& mixer)
{
    for (const auto method : { Sobel, Gauss, Histogram, VeryImportantAreas, Achanta })
        mixer.setMethodEnabled(method, false);
}

// The value that one pixel gets when maps of these red values are blended.
int blendedRed(const std::vector<int>& reds, const QList<int>& weights)
{
    QList<QImage> maps;
    for (const int red : reds)
        maps.append(support::redPixel(red));
    return support::reds(VXSalienzMixer(unscaled).mix(maps, weights)).front();
}

// So long that Qt can hold its bits, but no map of it.
QImage rowOfBits()
{
    QImage image(100000000, 1, QImage::Format_Mono);
    image.fill(0);
    return image;
}

} // namespace

TEST(VXSalienzMixer, isNeitherCopiedNorMoved)
{
    EXPECT_FALSE(std::is_copy_constructible_v<VXSalienzMixer>);
    EXPECT_FALSE(std::is_copy_assignable_v<VXSalienzMixer>);
    EXPECT_FALSE(std::is_move_constructible_v<VXSalienzMixer>);
    EXPECT_FALSE(std::is_polymorphic_v<VXSalienzMixer>);
}

TEST(VXSalienzMixer, isMadeOfASizeWhereAMixerIsExpected)
{
    EXPECT_TRUE((std::is_convertible_v<QSize, VXSalienzMixer>));
}

TEST(VXSalienzMixer, holdsFourEnabledMethodsWithTheirWeights)
{
    const VXSalienzMixer mixer(unscaled);
    EXPECT_NE(dynamic_cast<VXSobelROI*>(mixer.roiMethod(Sobel)), nullptr);
    EXPECT_NE(dynamic_cast<VXGaussROI*>(mixer.roiMethod(Gauss)), nullptr);
    EXPECT_NE(dynamic_cast<VXHistogramROI*>(mixer.roiMethod(Histogram)), nullptr);
    EXPECT_NE(dynamic_cast<VXSalienzAchanta*>(mixer.roiMethod(Achanta)), nullptr);
    EXPECT_EQ(mixer.roiMethod(VeryImportantAreas), nullptr);
    EXPECT_EQ(mixer.gatherWeights(), (QList<int> { 20, 2, -10, 10 }));
    EXPECT_EQ(mixer.histogramROI(), mixer.roiMethod(Histogram));
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

TEST(VXSalienzMixer, flipsTheSignOfTheHistogramWeight)
{
    VXSalienzMixer mixer(unscaled);
    for (const auto& [given, stored] : { std::pair(5, -5), std::pair(-5, 5), std::pair(0, 0),
             std::pair(INT_MAX, -INT_MAX), std::pair(INT_MIN, INT_MIN) }) {
        mixer.setMethodWeight(Histogram, given);
        EXPECT_EQ(mixer.roiMethod(Histogram)->getWeight(), stored);
    }
}

TEST(VXSalienzMixer, injectedAreasAreOneMoreMethodOfWeightTwenty)
{
    VXSalienzMixer mixer(unscaled);
    mixer.injectVeryImportantAreas({ QRect(2, 2, 3, 3) }, QSize(20, 10));
    EXPECT_NE(dynamic_cast<VXVeryImportantAreasROI*>(mixer.roiMethod(VeryImportantAreas)), nullptr);
    EXPECT_TRUE(mixer.isMethodEnabled(VeryImportantAreas));
    EXPECT_EQ(mixer.gatherWeights(), (QList<int> { 20, 2, -10, 20, 10 }));
    const QList<QImage> maps = mixer.gatherResults(support::noise(20, 10, 1));
    ASSERT_EQ(maps.size(), 5);
    EXPECT_EQ(qRed(maps.at(3).pixel(3, 3)), 255);
}

TEST(VXSalienzMixer, aSecondInjectionReplacesTheFirstAndDoesNotDeleteIt)
{
    VXSalienzMixer mixer(unscaled);
    mixer.injectVeryImportantAreas({ QRect(2, 2, 3, 3) }, QSize(20, 10));
    // What a host does that wants the memory back.
    const std::unique_ptr<VXAbstractROI> first(mixer.roiMethod(VeryImportantAreas));
    mixer.setMethodWeight(VeryImportantAreas, 3);
    mixer.injectVeryImportantAreas({ QRect(12, 2, 3, 3) }, QSize(20, 10));

    EXPECT_NE(mixer.roiMethod(VeryImportantAreas), first.get());
    EXPECT_EQ(mixer.gatherWeights(), (QList<int> { 20, 2, -10, 20, 10 }));
    EXPECT_EQ(first->getWeight(), 3) << "the first is still there";
    const QImage image = support::noise(20, 10, 1);
    EXPECT_EQ(qRed(first->evaluate(image).pixel(3, 3)), 255);
    EXPECT_EQ(qRed(mixer.gatherResults(image).at(3).pixel(13, 3)), 255);
}

TEST(VXSalienzMixer, forwardsTheHistogramSettings)
{
    VXSalienzMixer mixer(unscaled);
    mixer.updateHistogramBinsChannel1(5);
    mixer.updateHistogramBinsChannel2(7);
    mixer.updateHistogramChiSquareThreshold(1.5);
    mixer.updateHistogramHorizontalBlocks(6);
    mixer.updateHistogramVerticalBlocks(4);
    mixer.updateHistogramMinWidth(0.4);
    mixer.updateHistogramMinHeight(0.3);
    // In the order of the record: threshold, rows, columns, heights, widths, bins.
    const support::HistogramSettings settings { 1.5, 4, 6, 0.3, 0.4, 5, 7 };
    for (const QImage& image : support::variedImages(61, 43, 2))
        EXPECT_TRUE(support::sameImage(support::plainHistogramMap(image, settings),
            mixer.roiMethod(Histogram)->evaluate(image)));
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

TEST(VXSalienzMixer, gathersMapsAndWeightsOfTheEnabledMethodsInOrder)
{
    VXSalienzMixer mixer(unscaled);
    const QImage image = support::noise(40, 30, 1);
    mixer.setMethodEnabled(Histogram, false);
    const QList<QImage> maps = mixer.gatherResults(image);
    ASSERT_EQ(maps.size(), 3);
    EXPECT_TRUE(support::sameImage(VXSobelROI().evaluate(image), maps.at(0)));
    EXPECT_TRUE(support::sameImage(VXGaussROI().evaluate(image), maps.at(1)));
    EXPECT_TRUE(support::sameImage(VXSalienzAchanta().evaluate(image), maps.at(2)));
    EXPECT_EQ(mixer.gatherWeights(), (QList<int> { 20, 2, 10 }));
    disableAll(mixer);
    EXPECT_TRUE(mixer.gatherResults(image).isEmpty());
    EXPECT_TRUE(mixer.gatherWeights().isEmpty());
}

TEST(VXSalienzMixer, keepsTheWeightOfAMethodWhoseMapIsNull)
{
    const VXSalienzMixer mixer(unscaled);
    EXPECT_TRUE(mixer.gatherResults(QImage()).isEmpty());
    EXPECT_EQ(mixer.gatherWeights(), (QList<int> { 20, 2, -10, 10 }));
}

TEST(VXSalienzMixer, analyzeReturnsTheInputItselfWhenEveryMethodIsOff)
{
    VXSalienzMixer mixer(QSize(8, 8));
    disableAll(mixer);
    const QImage image = support::noise(20, 10, 2).convertToFormat(QImage::Format_Indexed8);
    const QImage result = mixer.analyze(image);
    EXPECT_TRUE(support::sameImage(image, result));
    EXPECT_EQ(result.colorTable(), image.colorTable());
}

TEST(VXSalienzMixer, analyzeReturnsASingleMapUnchangedWhateverItsWeight)
{
    VXSalienzMixer mixer(unscaled);
    const QImage image = support::variedImages(60, 44, 2)[2];
    disableAll(mixer);
    mixer.setMethodEnabled(Histogram, true);
    for (const int weight : { 10, 0, -10 }) { // stored as -10, 0 and 10
        mixer.setMethodWeight(Histogram, weight);
        EXPECT_TRUE(support::sameImage(VXHistogramROI().evaluate(image), mixer.analyze(image)));
    }
}

TEST(VXSalienzMixer, analyzeClampsToZeroWhenOnlyTheSubtractedMapIsLeftToBlend)
{
    VXSalienzMixer mixer(unscaled);
    disableAll(mixer);
    mixer.setMethodEnabled(Histogram, true);
    mixer.setMethodEnabled(Gauss, true);
    mixer.setMethodWeight(Gauss, 0); // both weights at most 0: divided by 1
    QImage flat(30, 22, QImage::Format_RGB32);
    flat.fill(Qt::red);
    EXPECT_EQ(support::reds(mixer.analyze(flat)), std::vector<int>(660, 0));
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

// Working sizes, switches, weights and areas at random, against the plain blend of the methods'
// maps.
TEST(VXSalienzMixer, analyzeEqualsThePlainBlendOfItsMethods)
{
    support::Random random(5);
    for (int round = 0; round < 150; ++round) {
        const QSize size(1 + random.below(90), 1 + random.below(90));
        const QImage image = support::variedImages(
            size.width(), size.height(), random.word())[static_cast<std::size_t>(round % 5)];
        const QSize workingSize
            = random.below(3) == 0 ? unscaled : QSize(1 + random.below(90), 1 + random.below(90));
        const QImage working = workingSize.isValid()
            ? image.scaled(workingSize, Qt::KeepAspectRatio, Qt::FastTransformation)
            : image;

        VXSalienzMixer mixer(workingSize);
        VXSobelROI sobel;
        VXGaussROI gauss;
        VXHistogramROI histogram;
        const QList<QRect> marked { QRect(random.below(50), random.below(50), 9, 7) };
        VXVeryImportantAreasROI areas(marked, working.size());
        VXSalienzAchanta achanta;
        const bool hasAreas = random.below(2) == 0;
        if (hasAreas)
            mixer.injectVeryImportantAreas(marked, working.size());

        QList<QImage> maps;
        QList<int> weights;
        for (const auto& [key, method] :
            { std::pair<VXSalienzMethod, VXAbstractROI*>(Sobel, &sobel), { Gauss, &gauss },
                { Histogram, &histogram }, { VeryImportantAreas, &areas },
                { Achanta, &achanta } }) {
            const bool isEnabled = random.below(4) != 0;
            const int weight = random.below(80) - 20;
            mixer.setMethodEnabled(key, isEnabled);
            mixer.setMethodWeight(key, weight);
            if (isEnabled && (key != VeryImportantAreas || hasAreas)) {
                maps.append(method->evaluate(working));
                weights.append(key == Histogram ? -weight : weight);
            }
        }

        QImage expected = maps.isEmpty() ? image : maps.first();
        if (maps.size() > 1) {
            expected = QImage(working.size(), QImage::Format_ARGB32);
            vx::kernels::reference::blend(maps, weights, expected);
        }
        ASSERT_TRUE(support::sameImage(expected, mixer.analyze(image))) << round;
    }
}

TEST(VXSalienzMixer, analyzeReturnsAPictureWhoseMapQtCannotHold)
{
    const QImage image = rowOfBits();
    EXPECT_TRUE(VXGaussROI().evaluate(image).isNull());
    EXPECT_EQ(VXSalienzMixer(unscaled).analyze(image), image);
}

TEST(VXSalienzMixer, takesNoMemoryForAMapThatQtCannotHold)
{
    if (support::isSanitized)
        GTEST_SKIP() << "the sanitizer takes memory of its own";
    const QImage image = rowOfBits();
    const double peak = support::peakMemoryOf([&] {
        VXGaussROI().evaluate(image);
        VXSalienzMixer(unscaled).analyze(image);
    });
    EXPECT_LT(peak, 2e7) << "a copy takes a bit for each pixel, levels would take a byte";
}

TEST(VXSalienzMixer, analyzeLeavesTheEdgeMethodTheKernelThatEvaluateLeaves)
{
    VXSalienzMixer mixer(unscaled);
    const auto* const edges = dynamic_cast<VXSobelROI*>(mixer.roiMethod(Sobel));
    const QImage image = support::noise(9, 7, 3);
    mixer.analyze(image);
    VXSobelROI method;
    method.evaluate(image);
    EXPECT_TRUE(support::sameImage(method.convolute(image), edges->convolute(image)));
    EXPECT_FALSE(support::sameImage(VXSobelROI().convolute(image), edges->convolute(image)));
}

TEST(VXSalienzMixer, analyzeShowsItsMethodsANullPictureToo)
{
    const support::MessageTrap trap;
    VXSalienzMixer mixer(unscaled);
    mixer.injectVeryImportantAreas({ QRect(1, 1, 2, 2) }, QSize(10, 10));
    EXPECT_TRUE(mixer.analyze(QImage()).isNull());
    EXPECT_EQ(trap.texts().size(), 1) << "the areas were given for another size";
    const QImage image = support::noise(9, 7, 3);
    VXSobelROI vertical;
    vertical.configureSobelV();
    EXPECT_TRUE(support::sameImage(vertical.convolute(image),
        dynamic_cast<VXSobelROI*>(mixer.roiMethod(Sobel))->convolute(image)));
}

TEST(VXSalienzMixer, runsFromSeveralThreadsWithAMixerEach)
{
    const QImage image = support::noise(120, 90, 6);
    const QImage expected = VXSalienzMixer(unscaled).analyze(image);
    std::vector<QImage> maps(4);
    std::vector<std::thread> threads;
    threads.reserve(maps.size());
    for (QImage& map : maps)
        threads.emplace_back([&image, &map] { map = VXSalienzMixer(unscaled).analyze(image); });
    for (std::thread& thread : threads)
        thread.join();
    for (const QImage& map : maps)
        EXPECT_TRUE(support::sameImage(expected, map));
}

TEST(VXSalienzMixer, takesAtMostFortyBytesAPixelBesideThePicture)
{
    if (support::isSanitized)
        GTEST_SKIP() << "the sanitizer takes memory of its own";
    const QImage image = support::noise(3000, 2000, 7);
    const double pixels = 3000.0 * 2000.0;
    const double peak = support::peakMemoryOf([&] { VXSalienzMixer(unscaled).analyze(image); });
    EXPECT_GT(peak, 8 * pixels) << "the contrasts alone";
    EXPECT_LT(peak, 40 * pixels);
}
