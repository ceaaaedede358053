#include "kernels/EdgeResponse.h"

#include "support/ImageAssert.h"
#include "support/Random.h"
#include "support/TestImages.h"

namespace {

using namespace vx::kernels;

constexpr Kernel3x3 horizontal { 1, 2, 1, 0, 0, 0, -1, -2, -1 };
constexpr Kernel3x3 vertical { 1, 0, -1, 2, 0, -2, 1, 0, -1 };
constexpr Kernel3x3 lopsided { 5, -1, 0, 7, 3, -2, 0, 11, -4 };

using Response = void (*)(const QImage&, const Kernel3x3&, int, QImage&);
using Combination = void (*)(const QImage&, const QImage&, QImage&);

QImage responseOf(Response respond, const QImage& image, const Kernel3x3& kernel, int divisor)
{
    QImage target(image.size(), QImage::Format_ARGB32);
    respond(image, kernel, divisor, target);
    return target;
}

QImage combinationOf(Combination combine, const QImage& a, const QImage& b)
{
    QImage target(a.size(), QImage::Format_ARGB32);
    combine(a, b, target);
    return target;
}

} // namespace

TEST(EdgeResponse, plainResponseWeighsTheNeighboursByRows)
{
    QImage image(3, 3, QImage::Format_ARGB32);
    image.fill(qRgba(0, 0, 0, 9));
    for (int i = 0; i < 9; ++i) {
        QImage single = image;
        single.setPixel(i % 3, i / 3, qRgba(12, 0, 0, 9));
        const int expected = std::abs(lopsided[static_cast<std::size_t>(i)]) * 12 / 2;
        const int alpha = 9;
        EXPECT_EQ(responseOf(reference::respondToKernel, single, lopsided, 2).pixel(1, 1),
            qRgba(expected, expected, expected, alpha))
            << i;
    }
}

TEST(EdgeResponse, fastEqualsPlainForEverySize)
{
    support::Random random(1);
    for (int height = 1; height <= 40; ++height) {
        for (int width = 1; width <= 40; ++width) {
            const QImage image = support::noise(width, height, random.word());
            const QImage other = support::noise(width, height, random.word());
            for (const Kernel3x3& kernel : { horizontal, vertical, lopsided })
                ASSERT_TRUE(
                    support::sameImage(responseOf(reference::respondToKernel, image, kernel, 12),
                        responseOf(respondToKernel, image, kernel, 12)));
            ASSERT_TRUE(support::sameImage(combinationOf(reference::combineResponses, image, other),
                combinationOf(combineResponses, image, other)));
        }
    }
}

TEST(EdgeResponse, fastEqualsPlainForLargerImagesAndPaddedRows)
{
    for (const QImage& image : support::variedImages(641, 479, 2))
        EXPECT_TRUE(support::sameImage(responseOf(reference::respondToKernel, image, vertical, 12),
            responseOf(respondToKernel, image, vertical, 12)));
    const support::PaddedImage padded(support::noise(67, 45, 3));
    EXPECT_TRUE(
        support::sameImage(responseOf(reference::respondToKernel, padded.image(), horizontal, 12),
            responseOf(respondToKernel, padded.image(), horizontal, 12)));
}

TEST(EdgeResponse, combinesEveryPairOfResponses)
{
    QImage a(256, 256, QImage::Format_ARGB32);
    QImage b(256, 256, QImage::Format_ARGB32);
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x) {
            a.setPixel(x, y, qRgba(x, x, x, y));
            b.setPixel(x, y, qRgba(y, y, y, x));
        }
    }
    const QImage combined = combinationOf(combineResponses, a, b);
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x) {
            int root = 0; // the integer root, by trying
            while ((root + 1) * (root + 1) <= x * x + y * y)
                ++root;
            ASSERT_EQ(qRed(combined.pixel(x, y)), root & 0xFF) << x << ", " << y;
        }
    }
}

TEST(EdgeResponse, combinationTakesAMissingPartOfTheSecondAsZero)
{
    const QImage a = support::noise(20, 10, 4);
    for (const QSize& size : { QSize(7, 20), QSize(30, 3), QSize(7, 3), QSize(30, 30) }) {
        const QImage b = support::noise(size.width(), size.height(), 5);
        EXPECT_TRUE(support::sameImage(combinationOf(reference::combineResponses, a, b),
            combinationOf(combineResponses, a, b)));
    }
}
