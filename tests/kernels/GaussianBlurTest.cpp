#include "kernels/GaussianBlur.h"

#include "support/ImageAssert.h"
#include "support/TestImages.h"

#include <cmath>

// The fast kernel only asks whether a weight is 1. Weights that are just below or just at it, with
// the others as large as that allows, are where it could go wrong.
TEST(GaussianBlur, fastEqualsPlainAroundTheWeightsThatVanish)
{
    int keeping = 0;
    for (int step = 0; step < 400; ++step) {
        const double sigma = 0.1 + step * 0.0005;
        const double outer = std::exp(-0.5 / (sigma * sigma));
        const double factor = 1 / (outer + 1 + outer);
        const QVector<double> weights { outer * factor, factor, outer * factor };
        keeping += weights.contains(1.0) ? 1 : 0;
        const QImage source = support::noise(9, 300, static_cast<unsigned>(step));
        QImage expected(source.size(), QImage::Format_ARGB32);
        QImage actual(source.size(), QImage::Format_ARGB32);
        vx::kernels::reference::gaussianBlur(source, weights, expected);
        vx::kernels::gaussianBlur(source, weights, actual);
        ASSERT_TRUE(support::sameImage(expected, actual)) << sigma;
    }
    EXPECT_GT(keeping, 20);
    EXPECT_LT(keeping, 380);
}
