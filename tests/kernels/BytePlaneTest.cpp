#include "kernels/BytePlane.h"

#include "support/GreyPlanes.h"
#include "support/ImageAssert.h"
#include "support/TestImages.h"
#include "support/Variants.h"

TEST(BytePlane, holdsTheRedValuesOfAPaddedImage)
{
    for (int width = 1; width <= 70; ++width) {
        const support::PaddedImage padded(support::noise(width, 3, static_cast<unsigned>(width)));
        const QImage image = padded.image();
        for (const vx::kernels::RowLoops* const loops : vx::kernels::availableRowLoops()) {
            const vx::kernels::BytePlane reds = vx::kernels::redPlaneOf(image, *loops);
            ASSERT_EQ(QSize(reds.width, reds.height), image.size());
            for (int i = 0; i < 3 * width; ++i)
                ASSERT_EQ(reds.values[static_cast<std::size_t>(i)],
                    qRed(image.pixel(i % width, i / width)))
                    << loops->name << ", " << width << " wide, " << i;
        }
    }
}

TEST(BytePlane, becomesAnOpaqueGreyImage)
{
    for (int width = 1; width <= 70; ++width) {
        const auto writeLevels = [](vx::kernels::BytePlane& levels) {
            for (int i = 0; i < levels.width * levels.height; ++i)
                levels.values[static_cast<std::size_t>(i)] = static_cast<quint8>(i * 7);
        };
        const QSize size(width, 40); // every level, in the wider ones
        vx::kernels::BytePlane levels = vx::kernels::uninitializedPlane(size);
        writeLevels(levels);
        ASSERT_TRUE(support::everyVariantGives(
            support::greyImage(size, writeLevels), [&](const vx::kernels::RowLoops& loops) {
                return vx::kernels::greyImageOf(levels, loops);
            }));
    }
}

TEST(BytePlane, ofNoPixelsIsANullImage)
{
    EXPECT_TRUE(vx::kernels::greyImageOf(vx::kernels::blackPlane(QSize(0, 0))).isNull());
    EXPECT_TRUE(vx::kernels::greyImageOf(vx::kernels::redPlaneOf(QImage())).isNull());
}

TEST(BytePlane, blackIsZero)
{
    const vx::kernels::BytePlane black = vx::kernels::blackPlane(QSize(5, 3));
    EXPECT_EQ(std::vector<quint8>(black.values.get(), black.values.get() + 15),
        std::vector<quint8>(15, 0));
}
