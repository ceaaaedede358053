#include "kernels/image/PixelWords.h"

#include "support/ImageAssert.h"
#include "support/MessageTrap.h"
#include "support/TestImages.h"

#include <QPainter>

TEST(PixelWords, imagesOf32BitsPerPixelAreTakenAsTheyAre)
{
    for (int format = 1; format < QImage::NImageFormats; ++format) {
        const QImage image(3, 2, static_cast<QImage::Format>(format));
        if (image.depth() != 32)
            continue;
        const QImage words = vx::kernels::toPixelWords(image);
        EXPECT_EQ(words.format(), image.format());
        EXPECT_EQ(words.constBits(), image.constBits()) << "format " << format;
    }
}

TEST(PixelWords, imagesOfAnyOtherDepthAreConvertedToArgb32)
{
    int converted = 0;
    for (int format = 1; format < QImage::NImageFormats; ++format) {
        const auto other = static_cast<QImage::Format>(format);
        const QImage image = support::noise(11, 3, 1).convertToFormat(other);
        if (image.depth() == 32)
            continue;
        ++converted;
        EXPECT_TRUE(support::sameImage(
            image.convertToFormat(QImage::Format_ARGB32), vx::kernels::toPixelWords(image)))
            << "format " << format;
    }
    EXPECT_GT(converted, 10);
}

// Larger than what is converted at once, narrow and wide.
TEST(PixelWords, largeImagesBecomeWhatQtMakesOfThem)
{
    for (int format = 1; format < QImage::NImageFormats; ++format) {
        for (const QSize& size : { QSize(401, 333), QSize(1, 140000), QSize(140000, 2) }) {
            QImage image = support::noise(size.width(), size.height(), 1)
                               .convertToFormat(static_cast<QImage::Format>(format));
            image.setText(QStringLiteral("Title"), QStringLiteral("Noise"));
            image.setDevicePixelRatio(1.5);
            image.setDotsPerMeterY(77);
            image.setOffset(QPoint(1, 2));
            const QImage expected = image.convertToFormat(QImage::Format_ARGB32);
            const QImage converted = vx::kernels::toArgb32(image);
            ASSERT_TRUE(support::sameImage(expected, converted)) << "format " << format;
            EXPECT_EQ(converted.textKeys(), expected.textKeys());
            EXPECT_EQ(converted.devicePixelRatio(), expected.devicePixelRatio());
            EXPECT_EQ(converted.dotsPerMeterY(), expected.dotsPerMeterY());
            EXPECT_EQ(converted.offset(), expected.offset());
        }
    }
}

TEST(PixelWords, aNullImageStaysNullWithoutAMessage)
{
    const support::MessageTrap trap;
    EXPECT_TRUE(vx::kernels::toPixelWords(QImage()).isNull());
    EXPECT_TRUE(trap.texts().isEmpty());
}

TEST(PixelWords, writingARowLeavesImagesAloneThatShareTheData)
{
    const QImage original = support::noise(4, 4, 1);
    const QImage untouched = original.copy();
    QImage shared = original;
    vx::kernels::writableWordRow(shared, 2)[1] = 0;
    EXPECT_TRUE(support::sameImage(untouched, original));
    EXPECT_EQ(vx::kernels::wordRow(shared, 2)[1], 0U);
}

// As Qt paints it, in every format that it paints in.
TEST(PixelWords, fillingAPartIsPaintingIt)
{
    const QRect part(3, 1, 5, 4);
    for (int format = 1; format < QImage::NImageFormats; ++format) {
        const QImage image
            = support::noise(11, 7, 1).convertToFormat(static_cast<QImage::Format>(format));
        if (image.pixelFormat().colorModel() == QPixelFormat::Indexed)
            continue;
        for (const QRgb colour : { 0xFF000000U, 0xFF9C9C9CU, 0xFFFFFFFFU, 0xFF1FC364U }) {
            QImage painted = image.copy();
            QPainter(&painted).fillRect(part, QColor(colour));
            QImage filled = image;
            vx::kernels::fillOpaque(part, colour, filled);
            EXPECT_EQ(filled, painted) << "format " << format << ", colour " << colour;
            EXPECT_NE(filled, image) << "format " << format;
        }
    }
}

TEST(PixelWords, opaqueGreyRepeatsTheLevel)
{
    EXPECT_EQ(vx::kernels::opaqueGrey(0), 0xFF000000U);
    EXPECT_EQ(vx::kernels::opaqueGrey(0x9C), 0xFF9C9C9CU);
    EXPECT_EQ(vx::kernels::opaqueGrey(255), 0xFFFFFFFFU);
}
