#include <VXRegionOfInterest/VXSalienzMaximizerAbstract.h>

#include "support/Random.h"

#include <gtest/gtest.h>

#include <climits>
#include <type_traits>
#include <utility>

namespace {

using Sums = QList<long long>;

// A map is whatever sums it is given.
class FixedSums : public VXSalienzMaximizerAbstract {
public:
    explicit FixedSums(Sums values)
        : fixed(std::move(values))
    {
    }
    Sums sums(const QImage& /*image*/) const override { return fixed; }

private:
    Sums fixed;
};

int bestStart(const Sums& values, int length)
{
    return FixedSums(values).startOfBestRange(QImage(), length);
}

// Adds up every examined range from its values.
int bestStartByHand(const Sums& values, int length)
{
    int best = 0;
    long long bestSum = LLONG_MIN;
    for (int start = 0; start < values.size() - length; ++start) {
        long long sum = 0;
        for (int i = start; i < start + length; ++i)
            sum += values.at(i);
        if (sum > bestSum) {
            bestSum = sum;
            best = start;
        }
    }
    return best;
}

} // namespace

TEST(VXSalienzMaximizerAbstract, isAbstractAndDestroyedThroughTheBase)
{
    EXPECT_TRUE(std::is_abstract_v<VXSalienzMaximizerAbstract>);
    EXPECT_TRUE(std::has_virtual_destructor_v<VXSalienzMaximizerAbstract>);
}

TEST(VXSalienzMaximizerAbstract, conglumerateAddsUpTheValuesSoFar)
{
    const FixedSums maximizer({});
    EXPECT_EQ(maximizer.conglumerate({ 3, 1, 4, 1, 5, 9 }), (Sums { 3, 4, 8, 9, 14, 23 }));
    EXPECT_EQ(maximizer.conglumerate({ 7 }), (Sums { 7 }));
    EXPECT_EQ(maximizer.conglumerate({}), Sums());
}

TEST(VXSalienzMaximizerAbstract, conglumerateCountsIn64Bits)
{
    const long long large = 0xFFFFFFFFLL;
    EXPECT_EQ(FixedSums({}).conglumerate({ large, large }), (Sums { large, 2 * large }));
}

TEST(VXSalienzMaximizerAbstract, conglumerateWrapsBeyond64Bits)
{
    EXPECT_EQ(FixedSums({}).conglumerate({ LLONG_MAX, 1 }), (Sums { LLONG_MAX, LLONG_MIN }));
}

TEST(VXSalienzMaximizerAbstract, lastStartIsNeverExamined)
{
    EXPECT_EQ(bestStart({ 0, 0, 0, 0, 9 }, 1), 0);
    EXPECT_EQ(bestStart({ 1, 5, 5, 1 }, 2), 1);
    EXPECT_EQ(bestStart({ 3, 1, 4, 1, 5, 9 }, 3), 2);
}

TEST(VXSalienzMaximizerAbstract, lastButOneStartIsExamined)
{
    EXPECT_EQ(bestStart({ 0, 0, 0, 9, 0 }, 1), 3);
}

TEST(VXSalienzMaximizerAbstract, earliestStartWinsATie)
{
    EXPECT_EQ(bestStart({ 0, 5, 0, 5, 0, 0 }, 1), 1);
    EXPECT_EQ(bestStart({ 4, 4, 4, 4, 4, 4 }, 2), 0);
}

TEST(VXSalienzMaximizerAbstract, aSingleOtherStartIsNotCompared)
{
    Sums values { 0, 9, 9, 9, 9, 9, 9, 9, 9, 9 };
    EXPECT_EQ(bestStart(values, 9), 0);
    EXPECT_EQ(bestStart(values, 10), 0);
    EXPECT_EQ(bestStart(values, 11), 0);
    EXPECT_EQ(bestStart(values, 8), 1);
}

TEST(VXSalienzMaximizerAbstract, lengthsBelowOneGiveZero)
{
    // Values so far below 0 that the difference of any two running sums would win.
    constexpr long long low = -1000000000000000;
    for (const int length : { 0, -1, -2, INT_MIN }) {
        EXPECT_EQ(bestStart({ 0, 0, 9, 0, 0 }, length), 0);
        EXPECT_EQ(bestStart({ low, low, low, low, low }, length), 0);
    }
}

TEST(VXSalienzMaximizerAbstract, extremeLengthsAndEmptySumsGiveZero)
{
    EXPECT_EQ(bestStart({ 0, 9, 0 }, INT_MAX), 0);
    for (const int length : { INT_MIN, -1, 0, 1, INT_MAX })
        EXPECT_EQ(bestStart({}, length), 0);
}

TEST(VXSalienzMaximizerAbstract, negativeSumsCompareAsNumbers)
{
    EXPECT_EQ(bestStart({ -5, -3, -1, -4 }, 1), 2);
}

TEST(VXSalienzMaximizerAbstract, bestRangeAcceptsAnyRunningSums)
{
    const FixedSums maximizer({});
    EXPECT_EQ(maximizer.bestRange({ LLONG_MIN, LLONG_MAX, 0, 0 }, 1), 1)
        << "the ranges are LLONG_MIN, -1 by wrapping, and LLONG_MIN + 1";
}

TEST(VXSalienzMaximizerAbstract, agreesWithSumsAddedUpByHand)
{
    support::Random random(11);
    for (int round = 0; round < 3000; ++round) {
        Sums values;
        const int count = random.below(30);
        for (int i = 0; i < count; ++i)
            values.append(random.below(7) - 2); // few values, so ties are many
        for (int length = 1; length <= count - 2; ++length)
            ASSERT_EQ(bestStart(values, length), bestStartByHand(values, length));
    }
}

TEST(VXSalienzMaximizerAbstract, startOfBestRangeIsTheThreeStepsInTurn)
{
    const FixedSums maximizer({ 2, 7, 1, 8, 2, 8, 1, 8 });
    for (int length = 1; length <= 8; ++length)
        EXPECT_EQ(maximizer.startOfBestRange(QImage(), length),
            maximizer.bestRange(maximizer.conglumerate(maximizer.sums(QImage())), length));
}
