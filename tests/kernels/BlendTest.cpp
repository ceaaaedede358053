#include "kernels/blend/Blend.h"

#include "support/ImageAssert.h"
#include "support/Random.h"
#include "support/TestImages.h"
#include "support/Variants.h"

#include <climits>

namespace {

QImage plainBlend(const QList<QImage>& maps, const QList<int>& weights)
{
    QImage target(maps.first().size(), QImage::Format_ARGB32);
    vx::kernels::reference::blend(maps, weights, target);
    return target;
}

std::vector<vx::kernels::MapView> viewsOf(const QList<QImage>& maps)
{
    return std::vector<vx::kernels::MapView>(maps.begin(), maps.end());
}

testing::AssertionResult fastEqualsPlain(const QList<QImage>& maps, const QList<int>& weights)
{
    return support::everyVariantGives(
        plainBlend(maps, weights), [&](const vx::kernels::RowLoops& loops) {
            QImage target(maps.first().size(), QImage::Format_ARGB32);
            vx::kernels::blend(viewsOf(maps), weights, target, loops);
            return target;
        });
}

// Small, huge and extreme weights, so that sums and divisors wrap in every way.
int randomWeight(support::Random& random)
{
    switch (random.below(6)) {
    case 0:
        return INT_MAX;
    case 1:
        return INT_MIN;
    case 2:
        return static_cast<int>(random.word());
    default:
        return random.below(60) - 20;
    }
}

} // namespace

TEST(Blend, plainBlendDividesAsPromised)
{
    const QList<QImage> maps { support::imageOfReds(2, { 200, 10 }),
        support::imageOfReds(2, { 100, 250 }) };
    EXPECT_EQ(support::reds(plainBlend(maps, { 3, -1 })), (std::vector { (600 - 100) / 3, 0 }));
}

TEST(Blend, fastEqualsPlainForEveryWidthAroundAVector)
{
    for (int width = 1; width <= 70; ++width) {
        const auto seed = static_cast<unsigned>(width);
        const support::PaddedImage padded(support::noise(width, 3, seed));
        EXPECT_TRUE(
            fastEqualsPlain({ padded.image(), support::noise(width, 3, seed + 100) }, { 20, -7 }))
            << width;
    }
}

TEST(Blend, fastEqualsPlainForRandomWeights)
{
    support::Random random(3);
    for (int round = 0; round < 2000; ++round) {
        QList<QImage> maps;
        QList<int> weights;
        const int count = 1 + random.below(7);
        for (int i = 0; i < count; ++i) {
            maps.append(support::noise(9, 4, random.word()));
            weights.append(randomWeight(random));
        }
        ASSERT_TRUE(fastEqualsPlain(maps, weights)) << "round " << round;
    }
}

TEST(Blend, fastEqualsPlainForDivisorsThatWrapToMinusOneAndZero)
{
    for (const int third : { 0, 1, 2, 3 }) {
        EXPECT_TRUE(fastEqualsPlain(
            { support::noise(256, 9, 1), support::noise(256, 9, 2), support::noise(256, 9, 3) },
            { INT_MAX, INT_MAX, third }))
            << third;
    }
}

TEST(Blend, mapsOfOtherSizesEndWhereTheyEnd)
{
    const QList<QImage> maps { support::noise(20, 10, 1), support::noise(7, 30, 2),
        support::noise(40, 3, 3), QImage() };
    EXPECT_TRUE(fastEqualsPlain(maps, { 1, 2, 3, 4 }));
}

TEST(Blend, nullTargetIsLeftAlone)
{
    const QImage map = support::noise(4, 4, 1);
    QImage target;
    vx::kernels::blend(viewsOf({ map }), { 1 }, target);
    EXPECT_TRUE(target.isNull());
}

TEST(Blend, levelsCountLikeTheMapsThatTheyStandFor)
{
    for (int width = 1; width <= 40; ++width) {
        const QImage levels
            = support::noise(width, 7, 3).convertToFormat(QImage::Format_Grayscale8);
        const QImage map = support::noise(width, 7, 4);
        for (const QList<int>& weights : { QList<int> { 9, -2 }, QList<int> { INT_MAX, 5 } }) {
            const QImage plain
                = plainBlend({ levels.convertToFormat(QImage::Format_ARGB32), map }, weights);
            ASSERT_TRUE(support::everyVariantGives(plain, [&](const vx::kernels::RowLoops& loops) {
                QImage target(levels.size(), QImage::Format_ARGB32);
                vx::kernels::blend(viewsOf({ levels, map }), weights, target, loops);
                return target;
            })) << width;
        }
    }
}

TEST(Blend, theTargetMayBeOneOfTheMaps)
{
    const QImage other = support::noise(67, 9, 5);
    for (const QList<int>& weights : { QList<int> { 9, -2 }, QList<int> { INT_MAX, 5 } }) {
        const QImage plain = plainBlend({ other, support::noise(67, 9, 6) }, weights);
        EXPECT_TRUE(support::everyVariantGives(plain, [&](const vx::kernels::RowLoops& loops) {
            QImage target = support::noise(67, 9, 6);
            vx::kernels::blend({ vx::kernels::MapView(other), vx::kernels::MapView(target) },
                weights, target, loops);
            return target;
        }));
    }
}
