#include "kernels/surround/FloatingPointFilter.h"
#include "kernels/image/GreyMap.h"
#include "kernels/image/LumaChroma.h"
#include "kernels/image/PixelWords.h"
#include "kernels/image/Planes.h"
#include "kernels/surround/ExactContrasts.h"
#include "support/TestImages.h"
#include "support/Variants.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace kernels = vx::kernels;

namespace {

// A channel of a picture as whole planes, with the arithmetic of Planes.h.
struct Channel {
    Channel(const QImage& image, double kernels::LumaChroma::*member)
        : width(image.width())
        , height(image.height())
    {
        for (int y = 0; y < height; ++y) {
            integral.append(kernels::Plane());
            for (int x = 0; x < width; ++x) {
                plane.append(kernels::lumaChromaOf(kernels::wordRow(image, y)[x]).*member);
                integral.last().append(0);
            }
        }
        smoothed = plane;
        kernels::smoothSeparably(plane, width, height, { 1, 2, 1 }, smoothed);
        kernels::integrate(plane, width, height, integral);
    }

    // The squared distance of a pixel to the mean of its surround.
    double contrast(int x, int y) const
    {
        const int radiusX = std::min(x, width - x);
        const int radiusY = std::min(y, height - y);
        const int left = x - radiusX;
        const int top = y - radiusY;
        const int right = std::min(x + radiusX, width - 1);
        const int bottom = std::min(y + radiusY, height - 1);
        const double area = (right - left + 1) * (bottom - top + 1);
        const double mean = kernels::rectangleSum(integral, left, top, right, bottom) / area;
        const double distance = mean - smoothed.at(y * width + x);
        return distance * distance;
    }

    int width;
    int height;
    kernels::Plane plane;
    kernels::Plane smoothed;
    kernels::IntegralImage integral;
};

testing::AssertionResult estimatesAreWithinTheBound(const QImage& image)
{
    const kernels::ExactContrasts contrasts(image, kernels::fastestRowLoops());
    for (const kernels::RowLoops* const loops : kernels::availableRowLoops()) {
        const kernels::FloatingPointFilter filter(image, *loops);
        for (int y = 0; y < image.height(); ++y) {
            const kernels::ErrorBound bound = filter.errorBound(y);
            for (int x = 0; x < image.width(); ++x) {
                const double estimate = filter.row(y)[x];
                const double error
                    = (bound.slope * estimate + bound.offset) * bound.ofColumns[x] + bound.floor;
                if (!(std::abs(estimate - contrasts.row(y)[x]) <= error))
                    return testing::AssertionFailure()
                        << loops->name << ": " << estimate << " is further than " << error
                        << " from " << contrasts.row(y)[x] << " at " << x << ", " << y;
            }
        }
    }
    return testing::AssertionSuccess();
}

} // namespace

TEST(ExactContrasts, areThePlainOnesToTheBit)
{
    for (const QSize& size : { QSize(1, 1), QSize(2, 9), QSize(7, 1), QSize(9, 2), QSize(8, 3),
             QSize(37, 23), QSize(170, 12), QSize(301, 10), QSize(24, 41), QSize(5, 40) }) {
        const QImage image = support::noise(size.width(), size.height(), 5);
        const Channel luma(image, &kernels::LumaChroma::luma);
        const Channel red(image, &kernels::LumaChroma::redDifference);
        const Channel blue(image, &kernels::LumaChroma::blueDifference);
        const kernels::ExactContrasts contrasts(image, kernels::fastestRowLoops());
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                const double expected
                    = luma.contrast(x, y) + red.contrast(x, y) + blue.contrast(x, y);
                ASSERT_EQ(contrasts.row(y)[x], expected) << x << ", " << y;
            }
        }
    }
}

TEST(FloatingPointFilter, estimatesAreWithinTheErrorBoundForEverySize)
{
    for (int height = 1; height <= 12; ++height) {
        for (int width = 1; width <= 70; ++width) {
            for (const QImage& image : support::variedImages(width, height, 3))
                ASSERT_TRUE(estimatesAreWithinTheBound(image)) << width << " x " << height;
        }
    }
}

TEST(FloatingPointFilter, estimatesAreWithinTheErrorBoundForLargerImages)
{
    for (const QSize& size : { QSize(640, 480), QSize(479, 641), QSize(1, 3000), QSize(3000, 1) }) {
        for (const QImage& image : support::variedImages(size.width(), size.height(), 4))
            ASSERT_TRUE(estimatesAreWithinTheBound(image)) << size.width();
        ASSERT_TRUE(
            estimatesAreWithinTheBound(support::chessboard(size.width(), size.height(), 15)));
    }
}

TEST(FloatingPointFilter, greyValuesAreMostlyCertain)
{
    for (const QImage& image : support::variedImages(640, 480, 5)) {
        QImage greyMap = kernels::uninitializedGreyMap(image.size());
        EXPECT_TRUE(kernels::FloatingPointFilter(image, kernels::fastestRowLoops())
                        .stretchIfCertain(greyMap));
    }
}

TEST(FloatingPointFilter, isUncertainOfAChessboard)
{
    const QImage image = support::chessboard(640, 480, 15);
    for (const kernels::RowLoops* const loops : kernels::availableRowLoops()) {
        QImage greyMap = kernels::uninitializedGreyMap(image.size());
        EXPECT_FALSE(kernels::FloatingPointFilter(image, *loops).stretchIfCertain(greyMap))
            << loops->name;
    }
}

// The error bound is derived for lengths that are off by 1 at most. (A uniform image is never off.)
TEST(FloatingPointFilter, isUncertainOfAnImageOfFiveMillionColumns)
{
    QImage image(5000000, 1, QImage::Format_RGB32);
    image.fill(Qt::white);
    for (const kernels::RowLoops* const loops : kernels::availableRowLoops()) {
        QImage greyMap = kernels::uninitializedGreyMap(image.size());
        EXPECT_FALSE(kernels::FloatingPointFilter(image, *loops).stretchIfCertain(greyMap))
            << loops->name;
    }
}
