#include "kernels/histogram/ChromaBins.h"

#include "support/Random.h"
#include "support/TestImages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace {

using namespace vx::kernels;

// A table of values and the view of it.
struct Table {
    Table(int rows, int columns)
        : values(static_cast<std::size_t>(rows * columns))
        , emptyRows(static_cast<std::size_t>(rows))
        , bins { values.data(), emptyRows.data(), rows, columns }
    {
    }

    std::vector<double> values;
    std::vector<quint8> emptyRows;
    Bins bins;
};

Table randomTable(int rows, int columns, support::Random& random)
{
    Table table(rows, columns);
    for (double& value : table.values)
        value = std::max(0, random.below(1998) - 999) / 999.0;
    return table;
}

void expectSame(const Table& expected, const Table& actual)
{
    for (std::size_t i = 0; i < expected.values.size(); ++i) {
        const double a = expected.values[i];
        const double b = actual.values[i];
        ASSERT_TRUE(a == b || (std::isnan(a) && std::isnan(b))) << i << ": " << a << ", not " << b;
    }
}

// Normalising and comparing give the plain results.
void expectSameArithmetic(const Table& counts, const Table& other, const RowLoops& loops)
{
    Table plain(counts.bins.rows, counts.bins.columns);
    Table fast(counts.bins.rows, counts.bins.columns);
    plain.values = counts.values;
    fast.values = counts.values;
    fast.emptyRows = counts.emptyRows;
    plain.bins.values = plain.values.data();
    fast.bins.values = fast.values.data();
    fast.bins.emptyRows = fast.emptyRows.data();
    reference::normalizeBins(plain.bins);
    normalizeBins(fast.bins, loops);
    expectSame(plain, fast);

    const double plainDistance = reference::chiSquareDistance(plain.bins, other.bins);
    const double distance = chiSquareDistance(fast.bins, other.bins);
    ASSERT_TRUE(plainDistance == distance || (std::isnan(plainDistance) && std::isnan(distance)))
        << loops.name << ": " << plainDistance << ", not " << distance;
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
        Table plainCounts(rows, columns);
        reference::countChroma(image, plainCounts.bins);

        Table other(1 + random.below(40), 1 + random.below(40));
        for (double& value : other.values)
            value = random.below(1000) / 999.0;
        for (const RowLoops* const loops : availableRowLoops()) {
            Table counts(rows, columns);
            countChroma(image, counts.bins, *loops);
            expectSame(plainCounts, counts);
            expectSameArithmetic(counts, other, *loops);
        }
    }
}

TEST(ChromaBins, countsIntoTablesBeyondTheCacheAsWell)
{
    const QImage image = support::noise(70, 50, 2);
    for (const int rows : { 32, 33, 257 }) {
        Table plain(rows, 64);
        Table fast(rows, 64);
        reference::countChroma(image, plain.bins);
        countChroma(image, fast.bins);
        expectSame(plain, fast);
        expectSameArithmetic(fast, plain, *availableRowLoops().front());
    }
}

// A table whose smallest value is not 0 has no rows to skip.
TEST(ChromaBins, normalizesZerosBelowWhichThereIsMore)
{
    Table table(3, 2);
    table.values = { 0, 0, -1, 3, 0, 0 };
    table.emptyRows = { 1, 0, 1 };
    Table other(1, 1);
    for (const RowLoops* const loops : availableRowLoops())
        expectSameArithmetic(table, other, *loops);
}

TEST(ChromaBins, distanceSkipsBinsThatAreZeroOrNoNumbers)
{
    Table own(1, 4);
    own.values = { 0.0, -0.0, std::numeric_limits<double>::quiet_NaN(), 2.0 };
    Table other(1, 4);
    other.values = { 9, 9, 9, 1 };
    EXPECT_EQ(chiSquareDistance(own.bins, other.bins), 0.5);
}

// One neighbour has no bins, one has others, one is no number somewhere, and one is alike.
TEST(ChromaBins, distancesAreExactUpToWhatIsEnough)
{
    support::Random random(4);
    std::size_t exactCount = 0;
    for (int round = 0; round < 400; ++round) {
        const Table own = randomTable(8, 8, random);
        Table different = randomTable(1 + random.below(12), 1 + random.below(12), random);
        Table undefined = randomTable(8, 8, random);
        undefined.values.back() = std::numeric_limits<double>::quiet_NaN();
        Table alike = own;
        alike.bins.values = alike.values.data();
        alike.values[static_cast<std::size_t>(random.below(64))] += 0.01;
        const std::array others { Bins {}, different.bins, undefined.bins, alike.bins };
        const double enough = random.below(400) / 10.0 - 1.0;
        const std::array<double, neighbourCount> distances
            = chiSquareDistances(own.bins, others, enough);
        for (std::size_t i = 0; i < others.size(); ++i) {
            const double exact = reference::chiSquareDistance(own.bins, others[i]);
            ASSERT_EQ(exact <= enough, distances[i] <= enough) << "round " << round << ", " << i;
            if (exact <= enough) {
                ASSERT_EQ(exact, distances[i]) << "round " << round << ", " << i;
            }
            exactCount += exact <= enough ? 1 : 0;
        }
    }
    EXPECT_GT(exactCount, 400U);
    EXPECT_LT(exactCount, 1200U);
}
