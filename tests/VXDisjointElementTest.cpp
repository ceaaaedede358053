#include <VXRegionOfInterest/VXDisjointElement.h>

#include <gtest/gtest.h>

#include <cstddef>

TEST(VXDisjointElement, isZeroByDefault)
{
    const VXDisjointElement element;
    EXPECT_EQ(element.rank, 0);
    EXPECT_EQ(element.size, 0);
    EXPECT_EQ(element.parent, 0);
}

TEST(VXDisjointElement, takesRankSizeAndParentInThisOrder)
{
    const VXDisjointElement element(1, 2, 3);
    const VXDisjointElement copy(element);
    EXPECT_EQ(copy.rank, 1);
    EXPECT_EQ(copy.size, 2);
    EXPECT_EQ(copy.parent, 3);
}

TEST(VXDisjointElement, isThreeIntsInThisOrder)
{
    EXPECT_EQ(sizeof(VXDisjointElement), 3 * sizeof(int));
    EXPECT_EQ(offsetof(VXDisjointElement, rank), 0U);
    EXPECT_EQ(offsetof(VXDisjointElement, size), sizeof(int));
    EXPECT_EQ(offsetof(VXDisjointElement, parent), 2 * sizeof(int));
}
