#include "kernels/ChromaBins.h"

#include "support/Random.h"
#include "support/TestImages.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

using namespace vx::kernels;

// A table of values and the view of it.
struct Table {
    Table(int rows, int columns)
        : values(static_cast<std::size_t>(rows * columns))
        , bins { values.data(), rows, columns }
    {
    }

    std::vector<double> values;
    Bins bins;
};

void expectSame(const Table& expected, const Table& actual)
{
    for (std::size_t i = 0; i < expected.values.size(); ++i) {
        const double a = expected.values[i];
        const double b = actual.values[i];
        ASSERT_TRUE(a == b || (std::isnan(a) && std::isnan(b))) << i << ": " << a << ", not " << b;
    }
}

} // namespace

TEST(ChromaBins, fastEqualsPlainForRandomTables)
{
    support::Random random(1);
    for (int round = 0; round < 1500; ++round) {
        const int rows = 1 + random.below(40);
        const int columns = 1 + random.below(40);
        const QImage image
            = support::noise(1 + random.below(60), 1 + random.below(60), random.word());
        Table plain(rows, columns);
        Table fast(rows, columns);
        reference::countChroma(image, plain.bins);
        countChroma(image, fast.bins);
        expectSame(plain, fast);
        reference::normalizeBins(plain.bins);
        normalizeBins(fast.bins);
        expectSame(plain, fast);

        Table other(1 + random.below(40), 1 + random.below(40));
        for (double& value : other.values)
            value = random.below(1000) / 999.0;
        const double plainDistance = reference::chiSquareDistance(plain.bins, other.bins);
        const double distance = chiSquareDistance(fast.bins, other.bins);
        ASSERT_TRUE(
            plainDistance == distance || (std::isnan(plainDistance) && std::isnan(distance)));
    }
}

TEST(ChromaBins, distanceSkipsBinsThatAreZeroOrNoNumbers)
{
    Table own(1, 4);
    own.values = { 0.0, -0.0, std::numeric_limits<double>::quiet_NaN(), 2.0 };
    Table other(1, 4);
    other.values = { 9, 9, 9, 1 };
    EXPECT_EQ(chiSquareDistance(own.bins, other.bins), 0.5);
}
