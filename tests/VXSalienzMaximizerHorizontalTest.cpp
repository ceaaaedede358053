#include <VXRegionOfInterest/VXSalienzMaximizerHorizontal.h>

#include "kernels/image/RedSums.h"
#include "support/AxisMaximizerTests.h"

using Sums = QList<long long>;

namespace {

struct HorizontalAxis {
    using Maximizer = VXSalienzMaximizerHorizontal;
    static Sums plainSums(const QImage& map) { return vx::kernels::reference::columnRedSums(map); }
};

} // namespace

namespace support {
INSTANTIATE_TYPED_TEST_SUITE_P(VXSalienzMaximizerHorizontal, AxisMaximizer, HorizontalAxis, );
}

TEST(VXSalienzMaximizerHorizontal, sumsTheRedValuesOfEachColumn)
{
    const QImage map = support::imageOfReds(3, { 1, 2, 4, 100, 200, 70 });
    EXPECT_EQ(VXSalienzMaximizerHorizontal().sums(map), (Sums { 101, 202, 74 }));
}

TEST(VXSalienzMaximizerHorizontal, countsIn64Bits)
{
    constexpr int rows = 16900000; // of 255 each pass 2³²
    QImage map(1, rows, QImage::Format_ARGB32);
    map.fill(Qt::white);
    EXPECT_EQ(VXSalienzMaximizerHorizontal().sums(map), (Sums { 255LL * rows }));
}

TEST(VXSalienzMaximizerHorizontal, findsTheLeftEdgeOfTheBrightestStrip)
{
    QImage map(40, 10, QImage::Format_ARGB32);
    map.fill(Qt::black);
    for (int x = 17; x < 25; ++x)
        map.setPixel(x, 4, qRgb(200, 200, 200));
    EXPECT_EQ(VXSalienzMaximizerHorizontal().startOfBestRange(map, 8), 17);
}
