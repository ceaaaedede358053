#include <VXRegionOfInterest/VXSalienzMethod.h>

#include <gtest/gtest.h>

#include <type_traits>

TEST(VXSalienzMethod, hasFixedValuesInTheOrderOfBlending)
{
    EXPECT_EQ(Sobel, 0);
    EXPECT_EQ(Gauss, 1);
    EXPECT_EQ(Histogram, 2);
    EXPECT_EQ(VeryImportantAreas, 3);
    EXPECT_EQ(Achanta, 4);
}

TEST(VXSalienzMethod, isUnscopedSoThatItConvertsToInt)
{
    EXPECT_TRUE((std::is_convertible_v<VXSalienzMethod, int>));
}
