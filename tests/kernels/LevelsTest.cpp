#include "kernels/image/Levels.h"

#include "support/GreyImage.h"
#include "support/ImageAssert.h"
#include "support/Variants.h"

TEST(Levels, becomeAnOpaqueGreyMap)
{
    for (int width = 1; width <= 70; ++width) {
        const QSize size(width, 40); // every level, in the wider ones
        const auto writeLevels = [](QImage& levels) {
            for (int i = 0; i < levels.width() * levels.height(); ++i)
                vx::kernels::writableLevelRow(levels, i / levels.width())[i % levels.width()]
                    = static_cast<quint8>(i * 7);
        };
        QImage levels = vx::kernels::uninitializedLevels(size);
        writeLevels(levels);
        ASSERT_TRUE(support::everyVariantGives(
            support::greyImage(size, writeLevels), [&](const vx::kernels::RowLoops& loops) {
                QImage map(size, QImage::Format_ARGB32);
                vx::kernels::writeGrey(levels, map, loops);
                return map;
            }));
    }
}

TEST(Levels, ofNoPixelsAreNull)
{
    EXPECT_TRUE(vx::kernels::uninitializedLevels(QSize(0, 0)).isNull());
}
