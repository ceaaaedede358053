#include "kernels/Cubes.h"

#include "support/ImageAssert.h"
#include "support/Random.h"
#include "support/TestImages.h"
#include "support/Variants.h"

namespace {

using namespace vx::kernels;

QImage plainlyPainted(const QImage& map, const QSize& cube, const CubeStandard& standard)
{
    QImage target(map.size(), QImage::Format_ARGB32);
    reference::paintCubes(map, cube, standard, target);
    return target;
}

} // namespace

TEST(Cubes, fastEqualsPlainForAnyStandard)
{
    support::Random random(1);
    for (int round = 0; round < 1500; ++round) {
        const int width = 1 + random.below(50);
        const int height = 1 + random.below(50);
        const QSize cube(1 + random.below(60), 1 + random.below(60));
        const std::vector<QImage> maps = support::variedImages(width, height, random.word());
        const QImage& map = maps[static_cast<std::size_t>(random.below(5))];
        const int magnitude = 1 << random.below(31);
        const int average = 1 + random.below(magnitude);
        const CubeStandard standard { random.below(4) == 0 ? -average : average,
            random.below(300) - 40 };
        const QImage plain = plainlyPainted(map, cube, standard);
        ASSERT_TRUE(support::everyVariantGives(plain, [&](const RowLoops& loops) {
            EXPECT_EQ(totalRed(map, loops), reference::totalRed(map)) << loops.name;
            QImage target(map.size(), QImage::Format_ARGB32);
            paintCubes(map, cube, standard, target, loops);
            return target;
        })) << round;
    }
}
