#include <VXRegionOfInterest/VXSalienzMaximizerVertical.h>

#include "kernels/image/RedSums.h"
#include "support/AxisMaximizerTests.h"

using Sums = QList<long long>;

namespace {

struct VerticalAxis {
    using Maximizer = VXSalienzMaximizerVertical;
    static Sums plainSums(const QImage& map) { return vx::kernels::reference::rowRedSums(map); }
};

} // namespace

namespace support {
INSTANTIATE_TYPED_TEST_SUITE_P(VXSalienzMaximizerVertical, AxisMaximizer, VerticalAxis, );
}

TEST(VXSalienzMaximizerVertical, sumsTheRedValuesOfEachRow)
{
    const QImage map = support::imageOfReds(3, { 1, 2, 4, 100, 200, 70 });
    EXPECT_EQ(VXSalienzMaximizerVertical().sums(map), (Sums { 7, 370 }));
}

TEST(VXSalienzMaximizerVertical, countsIn64Bits)
{
    constexpr int columns = 16900000; // of 255 each pass 2³²
    QImage map(columns, 1, QImage::Format_ARGB32);
    map.fill(Qt::white);
    EXPECT_EQ(VXSalienzMaximizerVertical().sums(map), (Sums { 255LL * columns }));
}

TEST(VXSalienzMaximizerVertical, findsTheTopEdgeOfTheBrightestStrip)
{
    QImage map(10, 40, QImage::Format_ARGB32);
    map.fill(Qt::black);
    for (int y = 17; y < 25; ++y)
        map.setPixel(4, y, qRgb(200, 200, 200));
    EXPECT_EQ(VXSalienzMaximizerVertical().startOfBestRange(map, 8), 17);
}
