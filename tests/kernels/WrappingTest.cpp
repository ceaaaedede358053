#include "kernels/image/Wrapping.h"

#include <gtest/gtest.h>

#include <climits>

namespace kernels = vx::kernels;

TEST(Wrapping, wrapsAtTheEndsOfTheRange)
{
    EXPECT_EQ(kernels::wrappingSum(INT_MAX, 1), INT_MIN);
    EXPECT_EQ(kernels::wrappingDifference(INT_MIN, 1), INT_MAX);
    EXPECT_EQ(kernels::wrappingDifference(0, INT_MIN), INT_MIN);
    EXPECT_EQ(kernels::wrappingProduct(65536, 65536), 0);
    EXPECT_EQ(kernels::wrappingProduct(INT_MIN, -1), INT_MIN);
    EXPECT_EQ(kernels::wrappingSum(LLONG_MAX, 1LL), LLONG_MIN);
}

TEST(Wrapping, isPlainArithmeticWithinTheRange)
{
    EXPECT_EQ(kernels::wrappingSum(2, -3), -1);
    EXPECT_EQ(kernels::wrappingDifference(2, 3), -1);
    EXPECT_EQ(kernels::wrappingProduct(-2, 3), -6);
}
