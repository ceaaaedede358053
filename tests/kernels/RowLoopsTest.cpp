#include "kernels/loops/RowLoops.h"

#include "kernels/Contrasts.h"
#include "kernels/LumaChroma.h"
#include "kernels/PixelWords.h"
#include "kernels/Planes.h"
#include "support/Random.h"
#include "support/TestImages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

namespace kernels = vx::kernels;

namespace {

std::vector<QRgb> randomPixels(std::size_t count, support::Random& random)
{
    std::vector<QRgb> pixels(count);
    for (QRgb& pixel : pixels)
        pixel = random.word();
    return pixels;
}

// Sums of up to a thousand rows of bytes, with many binary digits.
std::vector<double> randomSums(std::size_t count, support::Random& random)
{
    std::vector<double> sums(count);
    for (double& sum : sums)
        sum = random.word() / 65536.0 * (1.0 + random.below(1000) / 1000.0);
    return sums;
}

// The contrasts of some rows, and what becomes of the smoothing state.
std::vector<double> contrastsOf(
    const kernels::RowLoops& loops, int width, bool isUpper, int rowCount, unsigned seed)
{
    support::Random random(seed);
    const auto count = static_cast<std::size_t>(width);
    const std::vector<QRgb> pixels = randomPixels(4 * count, random);
    std::vector<double> state = randomSums(6 * count, random);
    const std::vector<double> widths = [&] {
        std::vector<double> all(count);
        for (double& columns : all)
            columns = 1 + random.below(width);
        return all;
    }();
    std::vector<double> reciprocals;
    reciprocals.reserve(widths.size());
    for (const double columns : widths)
        reciprocals.push_back(1 / columns);

    const std::ptrdiff_t stride = (width + 1) / 2 + 2 * kernels::integralMargin;
    std::vector<double> integral = randomSums(static_cast<std::size_t>(48 * stride), random);
    const auto row = [&](std::ptrdiff_t index) {
        return kernels::IntegralRow {
            integral.data() + 6 * stride * index + kernels::integralMargin, stride
        };
    };
    std::vector<double> contrasts(4 * count);
    std::vector<kernels::ContrastRow> rows;
    for (int i = 0; i < 4; ++i) {
        const auto first = static_cast<std::size_t>(i) * count;
        rows.push_back(
            { pixels.data() + first, 4.0, row(i), isUpper ? kernels::IntegralRow {} : row(4 + i),
                37.0 + 2 * i, contrasts.data() + first });
    }
    kernels::Range range { 1e300, 0 };
    loops.contrastRows(width, { widths.data(), reciprocals.data() },
        { { state.data(), width }, { state.data() + 3 * count, width } }, rows.data(), rowCount,
        range);
    contrasts.insert(contrasts.end(), state.begin(), state.end());
    contrasts.push_back(range.least);
    contrasts.push_back(range.greatest);
    return contrasts;
}

// A picture's channels as whole planes, with the arithmetic of Planes.h.
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
        const int reachX = std::min(x, width - x);
        const int reachY = std::min(y, height - y);
        const int left = x - reachX;
        const int top = y - reachY;
        const int right = std::min(x + reachX, width - 1);
        const int bottom = std::min(y + reachY, height - 1);
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

} // namespace

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
            EXPECT_NE(a->integrateEightRows, b->integrateEightRows);
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

// Levels would hide a last bit that is wrong. The plain loops divide where the others multiply.
TEST(RowLoops, contrastsAreTheSameToTheBit)
{
    const kernels::RowLoops& plain = *kernels::availableRowLoops().front();
    unsigned seed = 0;
    for (const int width : { 1, 2, 3, 4, 5, 7, 8, 9, 31, 64, 65, 127, 159, 160, 161, 162, 168, 319,
             320, 321, 640, 3001 }) {
        for (const bool isUpper : { true, false }) {
            for (const int rowCount : { 1, 4 }) {
                const std::vector<double> expected
                    = contrastsOf(plain, width, isUpper, rowCount, ++seed);
                for (const kernels::RowLoops* const loops : kernels::availableRowLoops()) {
                    const std::vector<double> actual
                        = contrastsOf(*loops, width, isUpper, rowCount, seed);
                    ASSERT_EQ(std::memcmp(
                                  expected.data(), actual.data(), expected.size() * sizeof(double)),
                        0)
                        << loops->name << ", width " << width;
                }
            }
        }
    }
}

TEST(RowLoops, contrastsOfAPictureAreThePlainOnesToTheBit)
{
    for (const QSize& size : { QSize(1, 1), QSize(2, 9), QSize(7, 1), QSize(9, 2), QSize(8, 3),
             QSize(37, 23), QSize(170, 12), QSize(301, 10), QSize(24, 41), QSize(5, 40) }) {
        const QImage image = support::noise(size.width(), size.height(), 5);
        const Channel luma(image, &kernels::LumaChroma::luma);
        const Channel red(image, &kernels::LumaChroma::redDifference);
        const Channel blue(image, &kernels::LumaChroma::blueDifference);
        for (const kernels::RowLoops* const loops : kernels::availableRowLoops()) {
            const kernels::Contrasts contrasts(image, *loops);
            for (int y = 0; y < size.height(); ++y) {
                for (int x = 0; x < size.width(); ++x) {
                    const double expected
                        = luma.contrast(x, y) + red.contrast(x, y) + blue.contrast(x, y);
                    ASSERT_EQ(contrasts.row(y)[x], expected)
                        << loops->name << ": " << x << ", " << y;
                }
            }
        }
    }
}

// Around every quotient that a level can be, and as large as small sums may be.
TEST(RowLoops, smallSumsAreDividedLikeIntegers)
{
    const int most = kernels::mostOfSmallSums;
    std::vector<int> divisors { most / 2, most - 1, most, most + 1, 1 << 30 };
    for (int divisor = 1; divisor < most / 250; ++divisor)
        divisors.push_back(divisor);
    for (const int divisor : divisors) {
        std::vector<quint32> sums { static_cast<quint32>(-most), static_cast<quint32>(-1), 0,
            static_cast<quint32>(most) };
        for (qint64 level = 1; level <= 256 && level * divisor <= most; ++level) {
            sums.push_back(static_cast<quint32>(level * divisor - 1));
            sums.push_back(static_cast<quint32>(level * divisor));
        }
        std::vector<QRgb> expected;
        for (const quint32 sum : sums) {
            const int level = std::clamp(static_cast<qint32>(sum) / divisor, 0, 255);
            expected.push_back(qRgb(level, level, level));
        }
        std::vector<QRgb> actual(sums.size());
        for (const kernels::RowLoops* const loops : kernels::availableRowLoops()) {
            loops->divideSmallSums(
                sums.data(), static_cast<int>(sums.size()), divisor, actual.data());
            ASSERT_EQ(actual, expected) << loops->name << ", divisor " << divisor;
        }
    }
}
