#include "kernels/image/GreyMap.h"

#include "support/GreyImage.h"
#include "support/ImageAssert.h"
#include "support/Variants.h"

TEST(GreyMap, becomesAnOpaqueGreyMap)
{
    for (int width = 1; width <= 70; ++width) {
        const QSize size(width, 40); // every grey, in the wider ones
        const auto fill = [](QImage& greyMap) {
            for (int i = 0; i < greyMap.width() * greyMap.height(); ++i)
                vx::kernels::writableGreyRow(greyMap, i / greyMap.width())[i % greyMap.width()]
                    = static_cast<quint8>(i * 7);
        };
        QImage greyMap = vx::kernels::uninitializedGreyMap(size);
        fill(greyMap);
        ASSERT_TRUE(support::everyVariantGives(
            support::greyImage(size, fill), [&](const vx::kernels::RowLoops& loops) {
                QImage map(size, QImage::Format_ARGB32);
                vx::kernels::writeOpaqueGrey(greyMap, map, loops);
                return map;
            }));
    }
}

TEST(GreyMap, ofNoPixelsIsNull)
{
    EXPECT_TRUE(vx::kernels::uninitializedGreyMap(QSize(0, 0)).isNull());
}
