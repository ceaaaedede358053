#include "kernels/SurroundContrast.h"

#include "support/GreyPlanes.h"
#include "support/ImageAssert.h"
#include "support/TestImages.h"
#include "support/Variants.h"

namespace {

testing::AssertionResult fastEqualsPlain(const QImage& image)
{
    const QImage plain = support::greyImage(image.size(), [&](vx::kernels::BytePlane& levels) {
        vx::kernels::reference::surroundContrast(image, levels);
    });
    return support::everyVariantGives(plain, [&](const vx::kernels::RowLoops& loops) {
        return support::greyImage(image.size(), [&](vx::kernels::BytePlane& levels) {
            vx::kernels::surroundContrast(image, levels, loops);
        });
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

// Whole-number contrasts lie where a level begins, and rounding decides on which side.
TEST(SurroundContrast, fastEqualsPlainWhereRoundingDecides)
{
    for (const int side : { 1, 2, 3, 4, 15, 16 })
        EXPECT_TRUE(fastEqualsPlain(support::chessboard(640, 480, side))) << side;
}

TEST(SurroundContrast, leavesTheLevelsOfANullImageAlone)
{
    vx::kernels::BytePlane levels = vx::kernels::uninitializedPlane(QSize(0, 0));
    vx::kernels::surroundContrast(QImage(), levels);
    EXPECT_EQ(levels.width, 0);
}
