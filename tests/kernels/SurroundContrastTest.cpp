#include "kernels/SurroundContrast.h"

#include "support/ImageAssert.h"
#include "support/TestImages.h"

namespace {

using Contrast = void (*)(const QImage&, QImage&);

QImage contrastOf(Contrast contrast, const QImage& image)
{
    QImage target(image.size(), QImage::Format_ARGB32);
    contrast(image, target);
    return target;
}

testing::AssertionResult fastEqualsPlain(const QImage& image)
{
    return support::sameImage(contrastOf(vx::kernels::reference::surroundContrast, image),
        contrastOf(vx::kernels::surroundContrast, image));
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

TEST(SurroundContrast, leavesANullTargetAlone)
{
    QImage target;
    vx::kernels::surroundContrast(QImage(), target);
    EXPECT_TRUE(target.isNull());
}
