#include "kernels/edges/EdgeResponse.h"

#include "support/ImageAssert.h"
#include "support/Random.h"
#include "support/TestImages.h"
#include "support/Variants.h"

namespace {

using namespace vx::kernels;

constexpr Kernel3x3 horizontal { 1, 2, 1, 0, 0, 0, -1, -2, -1 };
constexpr Kernel3x3 vertical { 1, 0, -1, 2, 0, -2, 1, 0, -1 };
constexpr Kernel3x3 lopsided { 5, -1, 0, 7, 3, -2, 0, 11, -4 };

QImage plainResponse(const QImage& image, const Kernel3x3& kernel, int divisor)
{
    QImage target(image.size(), QImage::Format_ARGB32);
    reference::respondToKernel(image, kernel, divisor, target);
    return target;
}

testing::AssertionResult respondsLikePlain(
    const QImage& image, const Kernel3x3& kernel, int divisor = 12)
{
    return support::everyVariantGives(
        plainResponse(image, kernel, divisor), [&](const RowLoops& loops) {
            QImage target(image.size(), QImage::Format_ARGB32);
            respondToKernel(image, kernel, divisor, target, loops);
            return target;
        });
}

testing::AssertionResult combinesLikePlain(const QImage& a, const QImage& b)
{
    QImage plain(a.size(), QImage::Format_ARGB32);
    reference::combineResponses(a, b, plain);
    return support::everyVariantGives(plain, [&](const RowLoops& loops) {
        QImage target(a.size(), QImage::Format_ARGB32);
        combineResponses(a, b, target, loops);
        return target;
    });
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
        EXPECT_EQ(plainResponse(single, lopsided, 2).pixel(1, 1),
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
                ASSERT_TRUE(respondsLikePlain(image, kernel));
            ASSERT_TRUE(combinesLikePlain(image, other));
        }
    }
}

TEST(EdgeResponse, fastEqualsPlainForLargerImagesAndPaddedRows)
{
    for (const QImage& image : support::variedImages(641, 479, 2))
        EXPECT_TRUE(respondsLikePlain(image, vertical));
    const support::PaddedImage padded(support::noise(67, 45, 3));
    EXPECT_TRUE(respondsLikePlain(padded.image(), horizontal));
}

TEST(EdgeResponse, dividesLikePlainByAnyDivisor)
{
    constexpr Kernel3x3 heavy { 60, -4, 0, 0, 30, 0, 0, 0, -34 };
    for (int divisor = 1; divisor <= 400; ++divisor) {
        const QImage image = support::noise(40, 12, static_cast<unsigned>(divisor));
        ASSERT_TRUE(respondsLikePlain(image, heavy, divisor)) << divisor;
    }
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
    QImage roots(a.size(), QImage::Format_ARGB32);
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x) {
            int root = 0; // the integer root, by trying
            while ((root + 1) * (root + 1) <= x * x + y * y)
                ++root;
            roots.setPixel(x, y, qRgba(root & 0xFF, root & 0xFF, root & 0xFF, y));
        }
    }
    EXPECT_TRUE(support::everyVariantGives(roots, [&](const RowLoops& loops) {
        QImage target(a.size(), QImage::Format_ARGB32);
        combineResponses(a, b, target, loops);
        return target;
    }));
}

TEST(EdgeResponse, combinationTakesAMissingPartOfTheSecondAsZero)
{
    const QImage a = support::noise(20, 10, 4);
    for (const QSize& size : { QSize(7, 20), QSize(30, 3), QSize(7, 3), QSize(30, 30) }) {
        const QImage b = support::noise(size.width(), size.height(), 5);
        EXPECT_TRUE(combinesLikePlain(a, b));
    }
}
