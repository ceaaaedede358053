#include "kernels/CentrePrior.h"

#include "support/GreyImage.h"
#include "support/ImageAssert.h"
#include "support/Variants.h"

#include <cmath>

// The fast kernel takes a product of exponentials for the exponential of a sum. That truncates to
// the same level as long as no level of the formula lies close to an integer.
TEST(CentrePrior, noLevelLiesWithinAMillionthOfAnIntegerAboveZero)
{
    for (int quarterSquares = 1;; ++quarterSquares) { // 4 · distance²
        const long double level = 255.0L * std::exp(quarterSquares / -135200.0L);
        if (level < 0.5L)
            break;
        ASSERT_GT(std::abs(level - std::round(level)), 1e-6L) << quarterSquares;
    }
}

TEST(CentrePrior, fastEqualsPlainForEverySizeUpTo40)
{
    for (int height = 0; height <= 40; ++height) {
        for (int width = 0; width <= 40; ++width) {
            const QSize size(width, height);
            const QImage plain = support::greyImage(
                size, [](QImage& greyMap) { vx::kernels::reference::centrePrior(greyMap); });
            ASSERT_TRUE(support::everyVariantGives(plain, [&](const vx::kernels::RowLoops& loops) {
                return support::greyImage(
                    size, [&](QImage& greyMap) { vx::kernels::centrePrior(greyMap, loops); });
            }));
        }
    }
}
