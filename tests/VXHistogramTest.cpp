#include <VXRegionOfInterest/VXHistogram.h>

#include "kernels/histogram/ChromaBins.h"
#include "support/ImageAssert.h"
#include "support/MessageTrap.h"
#include "support/Random.h"
#include "support/TestImages.h"

#include <climits>
#include <cmath>

namespace {

QImage filled(int width, int height, QRgb word)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(word);
    return image;
}

// A normalised histogram.
VXHistogram normalised(const QImage& image, int bins1, int bins2)
{
    VXHistogram histogram(image, bins1, bins2);
    histogram.normalizeHistogram();
    return histogram;
}

// The bins that the plain kernels give.
std::vector<double> plainBins(const QImage& image, int rows, int columns, bool isNormalised)
{
    std::vector<double> values(static_cast<std::size_t>(rows * columns));
    std::vector<quint8> emptyRows(static_cast<std::size_t>(rows));
    const vx::kernels::Bins bins { values.data(), emptyRows.data(), rows, columns };
    vx::kernels::reference::countChroma(image, bins);
    if (isNormalised)
        vx::kernels::reference::normalizeBins(bins);
    return values;
}

bool isSame(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

} // namespace

TEST(VXHistogram, countsTheSecondByteInRowsAndTheLowestInColumns)
{
    QImage image = filled(3, 1, 0xFFAA1008);
    image.setPixel(2, 0, 0x00FFFF00);
    VXHistogram histogram(image, 32, 32);
    EXPECT_EQ(histogram.getHistogramValue(1, 2), 2.0);
    EXPECT_EQ(histogram.getHistogramValue(2, 1), 0.0);
    EXPECT_EQ(histogram.getHistogramValue(0, 31), 1.0);
}

TEST(VXHistogram, valueOfAColumnAndARowTakesTheColumnFirst)
{
    // Byte 16 is bin 1 of 16 rows, byte 200 is bin 3 of 4 columns.
    VXHistogram histogram(filled(1, 1, 0xFF0010C8), 16, 4);
    EXPECT_EQ(histogram.getHistogramValue(3, 1), 1.0);
}

TEST(VXHistogram, binsSpanEqualNumbersOfByteValues)
{
    for (int byte = 0; byte < 256; ++byte) {
        VXHistogram histogram(filled(1, 1, static_cast<QRgb>(byte)), 1, 32);
        EXPECT_EQ(histogram.getHistogramValue(byte / 8, 0), 1.0) << byte;
    }
}

TEST(VXHistogram, aBlockOfOneColourBecomesASingleFullBin)
{
    VXHistogram histogram = normalised(filled(10, 10, 0xFF124488), 32, 32);
    for (int row = 0; row < 32; ++row) {
        for (int column = 0; column < 32; ++column)
            EXPECT_EQ(histogram.getHistogramValue(column, row),
                row == 0x44 / 8 && column == 0x88 / 8 ? 1.0 : 0.0);
    }
}

TEST(VXHistogram, blocksOfDifferentChromaAreOneApart)
{
    VXHistogram a = normalised(filled(10, 10, 0xFF124488), 32, 32);
    VXHistogram b = normalised(filled(7, 3, 0xFF128844), 32, 32);
    EXPECT_EQ(a.compareHistogram(&b), 1.0);
}

TEST(VXHistogram, blocksThatDifferInLumaOnlyAreEqual)
{
    VXHistogram a = normalised(filled(10, 10, 0xFF124488), 32, 32);
    VXHistogram b = normalised(filled(10, 10, 0x00F14488), 32, 32);
    EXPECT_EQ(a.compareHistogram(&b), 0.0);
}

TEST(VXHistogram, distanceDividesByTheReceiversBinsOnly)
{
    QImage mixed = filled(4, 1, 0xFF000000);
    mixed.setPixel(0, 0, 0xFF0000FF);
    mixed.setPixel(1, 0, 0xFF00FF00);
    VXHistogram a(filled(4, 1, 0xFF000000), 2, 2); // 4 0 / 0 0
    VXHistogram b(mixed, 2, 2); // 2 1 / 1 0
    EXPECT_EQ(a.compareHistogram(&b), (4.0 - 2) * (4 - 2) / 4);
    EXPECT_EQ(b.compareHistogram(&a), (2.0 - 4) * (2 - 4) / 2 + 1 + 1);
}

TEST(VXHistogram, distanceDividesInsteadOfMultiplyingByTheInverse)
{
    VXHistogram a(support::noise(31, 17, 1), 3, 3);
    VXHistogram b(support::noise(29, 13, 2), 3, 3);
    double expected = 0;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            const double u = a.getHistogramValue(column, row);
            const double v = b.getHistogramValue(column, row);
            expected += ((u - v) * (u - v)) / u;
        }
    }
    EXPECT_EQ(a.compareHistogram(&b), expected);
}

TEST(VXHistogram, anImageWithoutPixelsNormalisesToNoNumbersThatCompareAsZero)
{
    VXHistogram none = normalised(QImage(), 4, 4);
    for (int i = 0; i < 16; ++i)
        EXPECT_TRUE(std::isnan(none.getHistogramValue(i % 4, i / 4)));
    VXHistogram some = normalised(support::noise(5, 5, 1), 4, 4);
    EXPECT_EQ(none.compareHistogram(&some), 0.0);
    EXPECT_TRUE(std::isnan(some.compareHistogram(&none)));
}

TEST(VXHistogram, theSmallestBinIsLookedForBelowAThousand)
{
    VXHistogram many = normalised(filled(50, 30, 0), 1, 1); // 1500 pixels
    EXPECT_EQ(many.getHistogramValue(0, 0), 1.0);
    VXHistogram exact = normalised(filled(50, 20, 0), 1, 1); // 1000 pixels
    EXPECT_TRUE(std::isnan(exact.getHistogramValue(0, 0)));
    QImage halves = filled(100, 30, 0); // 1400 and 1600 pixels
    for (int i = 0; i < 1600; ++i)
        halves.setPixel(i % 100, i / 100, 0xFF0000FF);
    VXHistogram uneven = normalised(halves, 1, 2);
    EXPECT_EQ(uneven.getHistogramValue(0, 0), (1400.0 - 1000) / (1600 - 1000));
    EXPECT_EQ(uneven.getHistogramValue(1, 0), 1.0);
}

TEST(VXHistogram, copiesShareTheirBins)
{
    VXHistogram original(filled(4, 4, 0), 2, 2);
    VXHistogram copy(original);
    VXHistogram assigned;
    assigned = original;
    original.normalizeHistogram();
    EXPECT_EQ(copy.getHistogramValue(0, 0), 1.0);
    EXPECT_EQ(assigned.getHistogramValue(0, 0), 1.0);
}

TEST(VXHistogram, binsOutliveTheHistogramThatCountedThem)
{
    VXHistogram copy;
    {
        const VXHistogram original(filled(4, 4, 0), 2, 2);
        copy = original;
    }
    EXPECT_EQ(copy.getHistogramValue(0, 0), 16.0);
}

TEST(VXHistogram, withoutBinsNothingIsCountedAndEverythingIsZero)
{
    const QImage image = support::noise(5, 5, 1);
    VXHistogram other(image, 4, 4);
    for (VXHistogram none : { VXHistogram(), VXHistogram(image, 0, 4), VXHistogram(image, 4, -1),
             VXHistogram(image, INT_MIN, INT_MIN), VXHistogram(image, -2, -2) }) {
        none.normalizeHistogram();
        EXPECT_EQ(none.compareHistogram(&other), 0.0);
        EXPECT_EQ(none.getHistogramValue(0, 0), 0.0);
    }
    EXPECT_EQ(other.compareHistogram(nullptr), 0.0);
}

TEST(VXHistogram, binsThatTheOtherLacksCountAsZero)
{
    VXHistogram large(filled(4, 1, 0xFF00FFFF), 4, 4);
    VXHistogram small(filled(4, 1, 0xFF00FFFF), 2, 2);
    VXHistogram none;
    EXPECT_EQ(large.compareHistogram(&small), 4.0);
    EXPECT_EQ(large.compareHistogram(&none), 4.0);
    EXPECT_EQ(small.compareHistogram(&large), 4.0);
}

TEST(VXHistogram, valuesOutsideTheTableAreZero)
{
    VXHistogram histogram(filled(4, 4, 0), 2, 3);
    for (const auto& [column, row] : { std::pair(-1, 0), std::pair(0, -1), std::pair(3, 0),
             std::pair(0, 2), std::pair(INT_MAX, INT_MAX) })
        EXPECT_EQ(histogram.getHistogramValue(column, row), 0.0);
}

TEST(VXHistogram, moreThan256BinsWorkAndSomeStayEmpty)
{
    VXHistogram histogram(filled(2, 2, 0xFF00FFFF), 300, 1000);
    EXPECT_EQ(histogram.getHistogramValue(255 * 1000 / 256, 255 * 300 / 256), 4.0);
}

TEST(VXHistogram, bytesWhoseBinOverflowsAnIntAreNotCounted)
{
    // 255 · 10⁷ is beyond an int and wraps below 0; 3 · 10⁷ / 256 is a bin.
    VXHistogram overflowing(filled(2, 2, 0xFF0000FF), 1, 10000000);
    VXHistogram fitting(filled(2, 2, 0xFF000003), 1, 10000000);
    EXPECT_EQ(overflowing.compareHistogram(&overflowing), 0.0);
    EXPECT_EQ(fitting.getHistogramValue(3 * 10000000 / 256, 0), 4.0);
    VXHistogram none;
    EXPECT_EQ(overflowing.compareHistogram(&none), 0.0);
    EXPECT_EQ(fitting.compareHistogram(&none), 4.0);
}

TEST(VXHistogram, readsEveryDepth)
{
    const QImage image = support::noise(9, 7, 3);
    for (int format = 1; format < QImage::NImageFormats; ++format) {
        const QImage other = image.convertToFormat(static_cast<QImage::Format>(format));
        VXHistogram direct(other, 8, 8);
        QImage words = other;
        if (words.depth() != 32)
            words = other.convertToFormat(QImage::Format_ARGB32);
        const std::vector<double> expected = plainBins(words, 8, 8, false);
        for (int i = 0; i < 64; ++i)
            ASSERT_EQ(direct.getHistogramValue(i % 8, i / 8), expected[static_cast<std::size_t>(i)])
                << "format " << format;
    }
}

TEST(VXHistogram, equalsThePlainHistogramForEverySize)
{
    support::Random random(4);
    for (int height = 1; height <= 40; ++height) {
        for (int width = 1; width <= 40; ++width) {
            const int rows = 1 + random.below(40);
            const int columns = 1 + random.below(40);
            const QImage image = support::noise(width, height, random.word());
            VXHistogram histogram = normalised(image, rows, columns);
            const std::vector<double> expected = plainBins(image, rows, columns, true);
            for (int i = 0; i < rows * columns; ++i)
                ASSERT_TRUE(isSame(histogram.getHistogramValue(i % columns, i / columns),
                    expected[static_cast<std::size_t>(i)]));
        }
    }
}
