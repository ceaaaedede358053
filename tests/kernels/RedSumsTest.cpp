#include "kernels/RedSums.h"

#include "support/TestImages.h"

#include <gtest/gtest.h>

namespace kernels = vx::kernels;

TEST(RedSums, plainSumsAddTheRedByteOnly)
{
    const QImage image = support::imageOfReds(2, { 1, 2, 30, 40 });
    EXPECT_EQ(kernels::reference::columnRedSums(image), (QList<long long> { 31, 42 }));
    EXPECT_EQ(kernels::reference::rowRedSums(image), (QList<long long> { 3, 70 }));
}

TEST(RedSums, fastEqualsPlainForEverySizeUpTo40)
{
    for (int height = 0; height <= 40; ++height) {
        for (int width = 0; width <= 40; ++width) {
            const QImage image
                = support::noise(width, height, static_cast<unsigned>(width * 64 + height));
            ASSERT_EQ(kernels::columnRedSums(image), kernels::reference::columnRedSums(image));
            ASSERT_EQ(kernels::rowRedSums(image), kernels::reference::rowRedSums(image));
        }
    }
}
