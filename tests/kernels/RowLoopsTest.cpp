#include "kernels/RowLoops.h"
#include "kernels/blend/BlendLoops.h"
#include "kernels/dilation/DilationLoops.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace kernels = vx::kernels;

TEST(RowLoops, everyVariantIsCompiledOnItsOwn)
{
    const auto variants = kernels::availableRowLoops();
    for (const kernels::RowLoops* const a : variants) {
        for (const kernels::RowLoops* const b : variants) {
            if (a == b)
                continue;
            EXPECT_STRNE(a->name, b->name);
            EXPECT_NE(a->dilation.writeMaxima, b->dilation.writeMaxima);
        }
    }
}

TEST(RowLoops, thereIsOneForEveryKindOfProcessorUpToThisOneWhichIsTheFastest)
{
    std::vector<std::string> kinds { "plain" };
#if defined(__x86_64__) && defined(__GNUC__)
    if (__builtin_cpu_supports("avx2"))
        kinds.emplace_back("avx2");
    if (__builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512bw"))
        kinds.emplace_back("avx512");
#endif
    std::vector<std::string> available;
    for (const kernels::RowLoops* const loops : kernels::availableRowLoops())
        available.emplace_back(loops->name);
    EXPECT_EQ(available, kinds);
    EXPECT_EQ(kernels::fastestRowLoops().name, kinds.back());
}

// Around every quotient that a level can be, and as large as small sums may be. The last maps
// take from each other.
TEST(RowLoops, smallSumsAreDividedLikeIntegers)
{
    const int most = kernels::mostOfSmallSums;
    std::vector<quint8> tall;
    std::vector<quint8> low;
    for (int sum = 0; sum <= most; ++sum) {
        tall.push_back(static_cast<quint8>(sum / 128));
        low.push_back(static_cast<quint8>(sum % 128));
    }
    std::vector<int> divisors { most - 1, most, most + 1, 1 << 30 };
    for (int divisor = 1; divisor < most / 250; ++divisor)
        divisors.push_back(divisor);
    std::vector<QRgb> actual(tall.size());
    for (const int sign : { 1, -1 }) {
        const auto weighted = [](const std::vector<quint8>& bytes, int weight) {
            return kernels::WeightedBytes { bytes.data(), static_cast<qint16>(weight) };
        };
        const std::array maps { weighted(tall, 128 * sign), weighted(low, sign), weighted(low, 90),
            weighted(low, -60), weighted(low, -30) };
        for (const int divisor : divisors) {
            std::vector<QRgb> expected;
            for (int sum = 0; sum <= most; ++sum) {
                const int level = std::clamp(sign * sum / divisor, 0, 255);
                expected.push_back(qRgb(level, level, level));
            }
            for (const kernels::RowLoops* const loops : kernels::availableRowLoops()) {
                loops->blend.blendFew(
                    maps.data(), static_cast<int>(tall.size()), divisor, actual.data());
                ASSERT_EQ(actual, expected)
                    << loops->name << ", divisor " << divisor << ", sign " << sign;
            }
        }
    }
}
