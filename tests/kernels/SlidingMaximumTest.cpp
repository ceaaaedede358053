#include "kernels/SlidingMaximum.h"

#include "support/Random.h"

#include <gtest/gtest.h>

namespace {

// The greatest key in reach, looked for key by key.
std::vector<int> plainMaximum(
    const std::vector<int>& keys, std::size_t length, std::size_t lanes, std::size_t arm)
{
    std::vector<int> maxima = keys;
    for (std::size_t i = 0; i < length; ++i) {
        for (std::size_t j = 0; j < length; ++j) {
            const std::size_t distance = i > j ? i - j : j - i;
            for (std::size_t lane = 0; lane < lanes && distance <= arm; ++lane)
                maxima[i * lanes + lane]
                    = std::max(maxima[i * lanes + lane], keys[j * lanes + lane]);
        }
    }
    return maxima;
}

} // namespace

TEST(SlidingMaximum, equalsASearchForEveryLengthAndArm)
{
    support::Random random(1);
    for (std::size_t length = 0; length <= 40; ++length) {
        for (std::size_t arm = 0; arm <= 45; ++arm) {
            for (const std::size_t lanes : { 1U, 3U, 8U }) {
                std::vector<int> keys(length * lanes);
                for (int& key : keys)
                    key = random.below(50);
                const std::vector<int> expected = plainMaximum(keys, length, lanes, arm);
                vx::kernels::slidingMaximum(keys, length, lanes, arm);
                ASSERT_EQ(keys, expected) << length << ", arm " << arm;
            }
        }
    }
}
