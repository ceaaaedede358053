#include "kernels/image/RedSums.h"

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
            const QList<long long> columns = kernels::reference::columnRedSums(image);
            const QList<long long> rows = kernels::reference::rowRedSums(image);
            for (const kernels::RowLoops* const loops : kernels::availableRowLoops()) {
                ASSERT_EQ(kernels::columnRedSums(image, *loops), columns) << loops->name;
                ASSERT_EQ(kernels::rowRedSums(image, *loops), rows) << loops->name;
            }
        }
    }
}

// More than 32 bits hold: (2²⁴ + 100000) · 255.
TEST(RedSums, areRightForColumnsAndRowsOfMillionsOfPixels)
{
    constexpr int length = (1 << 24) + 100000;
    constexpr long long sum = 255LL * length;
    QImage column(1, length, QImage::Format_ARGB32);
    column.fill(Qt::white);
    QImage row(length, 1, QImage::Format_ARGB32);
    row.fill(Qt::white);
    for (const kernels::RowLoops* const loops : kernels::availableRowLoops()) {
        EXPECT_EQ(kernels::columnRedSums(column, *loops), QList<long long> { sum });
        EXPECT_EQ(kernels::rowRedSums(row, *loops), QList<long long> { sum });
    }
}
