#pragma once

#include "support/MessageTrap.h"
#include "support/TestImages.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QList>

/// \file What the maximizers of both axes have in common, to be instantiated for a type with two
/// members: `Maximizer`, the class, and `plainSums(const QImage&)`, its sums taken the plain way.

namespace support {

template <typename Axis> class AxisMaximizer : public testing::Test {
protected:
    const typename Axis::Maximizer maximizer;
};

TYPED_TEST_SUITE_P(AxisMaximizer);

TYPED_TEST_P(AxisMaximizer, hasNoSumsForANullMapAndSaysNothing)
{
    const MessageTrap trap;
    for (const QImage& map :
        { QImage(), QImage(5, 0, QImage::Format_ARGB32), QImage(0, 5, QImage::Format_ARGB32) }) {
        EXPECT_TRUE(this->maximizer.sums(map).isEmpty());
        EXPECT_EQ(this->maximizer.startOfBestRange(map, 1), 0);
    }
    EXPECT_TRUE(trap.texts().isEmpty());
}

TYPED_TEST_P(AxisMaximizer, readsEvery32BitFormatAsTheWordsItHolds)
{
    const QImage map = noise(6, 4, 7);
    for (const QImage::Format format : { QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied,
             QImage::Format_RGBA8888, QImage::Format_RGB30 }) {
        QImage sameWords = map;
        ASSERT_TRUE(sameWords.reinterpretAsFormat(format));
        EXPECT_EQ(this->maximizer.sums(sameWords), this->maximizer.sums(map));
    }
}

TYPED_TEST_P(AxisMaximizer, convertsMapsOfOtherDepthsToArgb32)
{
    for (const QImage::Format format : { QImage::Format_Grayscale8, QImage::Format_RGB888,
             QImage::Format_Indexed8, QImage::Format_Mono, QImage::Format_RGBA64 }) {
        const QImage map = noise(13, 9, 8).convertToFormat(format);
        EXPECT_EQ(this->maximizer.sums(map),
            TypeParam::plainSums(map.convertToFormat(QImage::Format_ARGB32)));
    }
}

TYPED_TEST_P(AxisMaximizer, isCopied)
{
    const typename TypeParam::Maximizer copy(this->maximizer);
    const QImage map = noise(8, 8, 9);
    EXPECT_EQ(copy.sums(map), TypeParam::plainSums(map));
}

TYPED_TEST_P(AxisMaximizer, equalsThePlainSumsForEverySize)
{
    for (int height = 1; height <= 24; ++height) {
        for (int width = 1; width <= 24; ++width) {
            const auto seed = static_cast<unsigned>(width * 100 + height);
            const PaddedImage padded(noise(width, height, seed));
            ASSERT_EQ(this->maximizer.sums(padded.image()), TypeParam::plainSums(padded.image()));
        }
    }
}

REGISTER_TYPED_TEST_SUITE_P(AxisMaximizer, hasNoSumsForANullMapAndSaysNothing,
    readsEvery32BitFormatAsTheWordsItHolds, convertsMapsOfOtherDepthsToArgb32, isCopied,
    equalsThePlainSumsForEverySize);

} // namespace support
