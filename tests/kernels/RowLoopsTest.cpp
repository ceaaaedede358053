#include "kernels/loops/RowLoops.h"

#include <gtest/gtest.h>

#include <string>

namespace kernels = vx::kernels;

TEST(RowLoops, plainOnesAreThereOnEveryMachine)
{
    EXPECT_EQ(kernels::availableRowLoops().front()->name, std::string("plain"));
}

TEST(RowLoops, everyVariantIsCompiledOnItsOwn)
{
    const auto variants = kernels::availableRowLoops();
    for (const kernels::RowLoops* const a : variants) {
        for (const kernels::RowLoops* const b : variants) {
            if (a == b)
                continue;
            EXPECT_STRNE(a->name, b->name);
            EXPECT_NE(a->integrateFourRows, b->integrateFourRows);
        }
    }
}

TEST(RowLoops, theFastestIsTheLastThatTheMachineCanRun)
{
    EXPECT_EQ(&kernels::fastestRowLoops(), kernels::availableRowLoops().back());
}

#if defined(__x86_64__) && defined(__GNUC__)
TEST(RowLoops, thereIsOneForEveryKindOfProcessorUpToThisOne)
{
    const std::size_t kinds
        = __builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512bw") ? 3U
        : __builtin_cpu_supports("avx2")                                           ? 2U
                                                                                   : 1U;
    EXPECT_EQ(kernels::availableRowLoops().size(), kinds);
}
#endif
