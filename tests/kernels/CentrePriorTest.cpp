#include "kernels/CentrePrior.h"

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
            QImage plain(width, height, QImage::Format_ARGB32);
            vx::kernels::reference::centrePrior(plain);
            ASSERT_TRUE(support::everyVariantGives(plain, [&](const vx::kernels::RowLoops& loops) {
                QImage target(width, height, QImage::Format_ARGB32);
                vx::kernels::centrePrior(target, loops);
                return target;
            }));
        }
    }
}

TEST(CentrePrior, writesNothingBetweenTheRowsOfAPaddedTarget)
{
    constexpr int width = 5;
    constexpr std::size_t wordsPerRow = 8;
    std::vector<QRgb> words(wordsPerRow * 3, 7U);
    QImage target(reinterpret_cast<uchar*>(words.data()), width, 3, wordsPerRow * sizeof(QRgb),
        QImage::Format_ARGB32);
    vx::kernels::centrePrior(target);
    for (std::size_t i = 0; i < words.size(); ++i)
        EXPECT_EQ(words[i] == 7U, i % wordsPerRow >= width) << i;
}
