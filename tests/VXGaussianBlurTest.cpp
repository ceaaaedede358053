#include <VXRegionOfInterest/VXGaussianBlur.h>

#include "kernels/GaussianBlur.h"
#include "support/ImageAssert.h"
#include "support/MessageTrap.h"
#include "support/TestImages.h"

#include <climits>
#include <cmath>
#include <limits>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

QVector<double> kernelOf(int size, double sigma)
{
    return VXGaussianBlur::createGaussianKernel(size, sigma);
}

QImage filledLike(const QImage& image, QRgb colour)
{
    QImage filled(image.size(), QImage::Format_ARGB32);
    filled.fill(colour);
    return filled;
}

} // namespace

TEST(VXGaussianBlur, isEnabledWithWeightZeroWhenFresh)
{
    VXGaussianBlur blur(3, 2.6);
    EXPECT_TRUE(blur.isEnabled());
    EXPECT_EQ(blur.getWeight(), 0);
}

TEST(VXGaussianBlur, kernelIsTheNormalisedBell)
{
    const QVector<double> kernel = kernelOf(3, 2.6);
    ASSERT_EQ(kernel.size(), 3);
    const volatile double sigma = 2.6; // so that the library computes the exponential
    const double outer = std::exp(-0.5 / (sigma * sigma));
    const double factor = 1 / (outer + 1 + outer);
    EXPECT_EQ(kernel, (QVector<double> { outer * factor, factor, outer * factor }));
    EXPECT_NEAR(kernel.at(0), 0.3251, 2e-4);
    EXPECT_NEAR(kernel.at(1), 0.3498, 2e-4);
}

TEST(VXGaussianBlur, kernelMultipliesByTheInverseSumInsteadOfDividing)
{
    for (int size = 2; size < 40; ++size) {
        const double centre = (size - 1) * 0.5;
        const double scale = -0.5 / (1.7 * 1.7);
        QVector<double> expected;
        double sum = 0;
        for (int i = 0; i < size; ++i) {
            const double x = i - centre;
            expected.append(std::exp(scale * x * x));
            sum += expected.last();
        }
        const double inverse = 1 / sum;
        for (double& weight : expected)
            weight *= inverse;
        EXPECT_EQ(kernelOf(size, 1.7), expected) << size;
    }
}

TEST(VXGaussianBlur, sigmaThatIsNotPositiveIsChosenByTheSize)
{
    for (const double sigma : { 0.0, -1.0, notANumber }) {
        EXPECT_EQ(kernelOf(3, sigma), kernelOf(3, 0.8));
        EXPECT_EQ(kernelOf(7, sigma), kernelOf(7, ((7 - 1) * 0.5 - 1) * 0.3 + 0.8));
    }
}

TEST(VXGaussianBlur, kernelOfASizeBelowOneIsEmpty)
{
    for (const int size : { 0, -1, INT_MIN })
        EXPECT_TRUE(kernelOf(size, 2.6).isEmpty());
}

TEST(VXGaussianBlur, kernelOfOneWeightIsExactlyOne)
{
    for (const double sigma : { 2.6, 0.0, 1e-100, 1e300 })
        EXPECT_EQ(kernelOf(1, sigma), QVector<double> { 1.0 });
}

TEST(VXGaussianBlur, oneWeightRepeatsTheFirstRowOpaquely)
{
    const QImage image = support::noise(5, 4, 1);
    const QImage blurred = VXGaussianBlur(1, 2.6).evaluate(image);
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 5; ++x)
            EXPECT_EQ(blurred.pixel(x, y), image.pixel(x, 0) | 0xFF000000U);
    }
}

TEST(VXGaussianBlur, weightsBelowOneGiveOpaqueBlack)
{
    const QImage image = support::noise(9, 7, 2);
    for (const int size : { 3, 5, 31 }) {
        EXPECT_TRUE(support::sameImage(
            filledLike(image, 0xFF000000), VXGaussianBlur(size, 2.6).evaluate(image)));
    }
}

TEST(VXGaussianBlur, sizesBelowOneAndEvenOnesTakeAMissingWeightAsZero)
{
    const QImage image = support::noise(9, 7, 3);
    for (const int size : { INT_MIN, -1, 0, 2, 4 }) {
        EXPECT_TRUE(support::sameImage(
            filledLike(image, 0xFF000000), VXGaussianBlur(size, 2.6).evaluate(image)))
            << size;
    }
}

TEST(VXGaussianBlur, weightsThatAreNotNumbersGiveOpaqueBlack)
{
    const QImage image = support::noise(6, 5, 4);
    for (const int size : { 1, 2, 3 }) {
        EXPECT_TRUE(std::isnan(kernelOf(size, 1e-200).first())) << size;
        EXPECT_TRUE(support::sameImage(
            filledLike(image, 0xFF000000), VXGaussianBlur(size, 1e-200).evaluate(image)));
    }
}

TEST(VXGaussianBlur, returnsANullImageForANullImageWithoutAMessage)
{
    const support::MessageTrap trap;
    EXPECT_TRUE(VXGaussianBlur(3, 2.6).evaluate(QImage()).isNull());
    EXPECT_TRUE(VXGaussianBlur(1, 2.6).evaluate(QImage(0, 3, QImage::Format_RGB32)).isNull());
    EXPECT_TRUE(trap.texts().isEmpty());
}

TEST(VXGaussianBlur, equalsThePlainBlurInEveryFormat)
{
    const support::MessageTrap trap;
    const std::vector<std::pair<int, double>> settings { { 1, 1 }, { 3, 2.6 }, { 3, 0.1 },
        { 3, 0.05 }, { 5, 0.115 }, { 2, 1 }, { 4, 0.05 }, { 0, 1 }, { 7, 1e-3 }, { 3, 1e-200 } };
    for (const QImage& image : support::variedImages(13, 11, 5)) {
        for (int format = 1; format < QImage::NImageFormats; ++format) {
            const QImage source = image.convertToFormat(static_cast<QImage::Format>(format));
            for (const auto& [size, sigma] : settings) {
                QImage expected(source.size(), QImage::Format_ARGB32);
                vx::kernels::reference::gaussianBlur(source, kernelOf(size, sigma), expected);
                ASSERT_TRUE(
                    support::sameImage(expected, VXGaussianBlur(size, sigma).evaluate(source)))
                    << size << ", " << sigma << ", format " << format;
            }
        }
    }
    EXPECT_TRUE(trap.texts().isEmpty());
}

TEST(VXGaussianBlur, equalsThePlainBlurForEverySize)
{
    for (int height = 1; height <= 40; ++height) {
        for (int width = 1; width <= 40; ++width) {
            const QImage source
                = support::noise(width, height, static_cast<unsigned>(width * 41 + height));
            for (const int size : { 1, 3 }) {
                QImage expected(source.size(), QImage::Format_ARGB32);
                vx::kernels::reference::gaussianBlur(source, kernelOf(size, 0.05), expected);
                ASSERT_TRUE(
                    support::sameImage(expected, VXGaussianBlur(size, 0.05).evaluate(source)));
            }
        }
    }
}
