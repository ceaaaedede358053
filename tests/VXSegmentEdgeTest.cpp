#include <VXRegionOfInterest/VXSegmentEdge.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

TEST(VXSegmentEdge, isZeroByDefault)
{
    const VXSegmentEdge edge;
    EXPECT_EQ(edge.from(), 0);
    EXPECT_EQ(edge.to(), 0);
    EXPECT_EQ(edge.weight(), 0.0);
}

TEST(VXSegmentEdge, returnsWhatItWasGiven)
{
    const VXSegmentEdge edge(3, 9, 0.25);
    const VXSegmentEdge copy(edge);
    EXPECT_EQ(copy.from(), 3);
    EXPECT_EQ(copy.to(), 9);
    EXPECT_EQ(copy.weight(), 0.25);
}

TEST(VXSegmentEdge, sortsByAscendingWeight)
{
    std::vector<VXSegmentEdge> edges { { 0, 1, 3.0 }, { 1, 2, 1.0 }, { 2, 3, 2.0 } };
    std::sort(edges.begin(), edges.end());
    EXPECT_EQ(edges[0].weight(), 1.0);
    EXPECT_EQ(edges[1].weight(), 2.0);
    EXPECT_EQ(edges[2].weight(), 3.0);
}

TEST(VXSegmentEdge, comparesEqualWeightsAsFalseBothWays)
{
    const VXSegmentEdge a(0, 1, 0.5);
    const VXSegmentEdge b(7, 8, 0.5);
    EXPECT_FALSE(a < b);
    EXPECT_FALSE(b < a);
}

TEST(VXSegmentEdge, comparesWeightsThatAreNotNumbersAsFalse)
{
    const VXSegmentEdge number(0, 1, 0.5);
    const VXSegmentEdge none(0, 1, std::numeric_limits<double>::quiet_NaN());
    EXPECT_FALSE(number < none);
    EXPECT_FALSE(none < number);
    EXPECT_FALSE(none < none);
}
