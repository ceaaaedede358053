#include "kernels/surround/SurroundContrast.h"

#include "kernels/surround/ExactContrasts.h"
#include "kernels/surround/FloatingPointFilter.h"

#include "kernels/surround/SurroundLoops.h"
#include "support/GreyImage.h"
#include "support/ImageAssert.h"
#include "support/TestImages.h"
#include "support/Variants.h"

namespace {

testing::AssertionResult fastEqualsPlain(const QImage& image)
{
    const QImage plain = support::greyImage(image.size(),
        [&](QImage& greyMap) { vx::kernels::reference::surroundContrast(image, greyMap); });
    return support::everyVariantGives(plain, [&](const vx::kernels::RowLoops& loops) {
        return support::greyImage(image.size(),
            [&](QImage& greyMap) { vx::kernels::surroundContrast(image, greyMap, loops); });
    });
}

} // namespace

TEST(SurroundContrast, fastEqualsPlainForEverySize)
{
    for (int height = 1; height <= 40; ++height) {
        for (int width = 1; width <= 40; ++width) {
            const auto seed = static_cast<unsigned>(width * 41 + height);
            for (const QImage& image : support::variedImages(width, height, seed))
                ASSERT_TRUE(fastEqualsPlain(image)) << width << " x " << height;
        }
    }
}

TEST(SurroundContrast, fastEqualsPlainForLargerImagesAndPaddedRows)
{
    for (const QSize& size : { QSize(640, 480), QSize(479, 641), QSize(1, 3000), QSize(3000, 1) })
        EXPECT_TRUE(fastEqualsPlain(support::noise(size.width(), size.height(), 1)));
    const support::PaddedImage padded(support::noise(67, 45, 2));
    EXPECT_TRUE(fastEqualsPlain(padded.image()));
}

// Contrasts that are whole numbers lie where a grey value begins, and rounding decides on which side.
TEST(SurroundContrast, fastEqualsPlainWhereRoundingDecides)
{
    for (const int side : { 1, 2, 3, 4, 15, 16 })
        EXPECT_TRUE(fastEqualsPlain(support::chessboard(640, 480, side))) << side;
}

// So many bright rows that prefix sums outgrow the words that hold them. They restart at every vector, so each
// variant of the loops gives up at a number of rows of its own.
TEST(SurroundContrast, isExactForMoreRowsThanSumsCanHold)
{
    for (const vx::kernels::RowLoops* const loops : vx::kernels::availableRowLoops()) {
        const int runLength = loops->surround.runLength;
        const int mostRows = 2147483647 / (2 * runLength * 255);
        EXPECT_TRUE(vx::kernels::FloatingPointFilter::appliesTo(QSize(1, mostRows), *loops));
        EXPECT_FALSE(vx::kernels::FloatingPointFilter::appliesTo(QSize(1, mostRows + 1), *loops));

        QImage image(4 * runLength + 2, mostRows + 300, QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y) {
            auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
            for (int x = 0; x < image.width(); ++x) // bright, and not even
                row[x] = qRgb(255 - x % 3, 255 - y % 7, 250 + (x + y) % 5);
        }
        QImage exact = vx::kernels::uninitializedGreyMap(image.size());
        vx::kernels::ExactContrasts(image, *loops).stretch(exact);
        QImage greyMap = vx::kernels::uninitializedGreyMap(image.size());
        vx::kernels::surroundContrast(image, greyMap, *loops);
        EXPECT_EQ(greyMap, exact) << loops->name;
    }
}

TEST(SurroundContrast, writesNothingForANullImage)
{
    QImage greyMap = vx::kernels::uninitializedGreyMap(QSize(4, 3));
    greyMap.fill(7);
    const QImage untouched = greyMap.copy();
    vx::kernels::surroundContrast(QImage(), greyMap);
    EXPECT_EQ(greyMap, untouched);
}
