#include "kernels/Scaling.h"

#include "support/ImageAssert.h"
#include "support/MessageTrap.h"
#include "support/Random.h"
#include "support/TestImages.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace {

QImage scaledByQt(const QImage& image, const QSize& bound)
{
    return image.scaled(bound, Qt::KeepAspectRatio, Qt::FastTransformation);
}

QImage opaqueNoise(const QSize& size, unsigned seed, QImage::Format format)
{
    QImage image = support::noise(size.width(), size.height(), seed);
    for (int y = 0; y < image.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            row[x] |= 0xFF000000U;
    }
    return image.convertToFormat(format);
}

QSize randomSize(support::Random& random, int longest)
{
    return { 1 + random.below(longest), 1 + random.below(longest) };
}

// The formats whose opaque pixels are words.
const std::array<QImage::Format, 3> wordFormats { QImage::Format_RGB32, QImage::Format_ARGB32,
    QImage::Format_ARGB32_Premultiplied };

} // namespace

// Larger and smaller, and so often that the roundings of both sides meet in every way.
TEST(Scaling, opaquePixelsAreThoseThatQtTakes)
{
    support::Random random(11);
    for (int round = 0; round < 2000; ++round) {
        const QImage::Format format = wordFormats.at(static_cast<std::size_t>(round % 3));
        const int longest = round % 20 == 0 ? 500 : round % 2 == 0 ? 100 : 30;
        const QImage image = opaqueNoise(randomSize(random, longest), random.word(), format);
        const QSize bound = randomSize(random, 2 * longest);
        ASSERT_TRUE(
            support::sameImage(scaledByQt(image, bound), vx::kernels::scaledInto(bound, image)))
            << image.width() << " x " << image.height() << " into " << bound.width() << " x "
            << bound.height() << ", format " << format;
    }
}

TEST(Scaling, otherPixelsAreBlendedAsQtBlendsThem)
{
    support::Random random(12);
    for (int round = 0; round < 300; ++round) {
        const QSize size = randomSize(random, 60);
        const QSize bound = randomSize(random, 60);
        for (const QImage& image : support::variedImages(size.width(), size.height(), 1)) {
            for (const QImage::Format format : wordFormats) {
                const QImage converted = image.convertToFormat(format);
                ASSERT_TRUE(support::sameImage(
                    scaledByQt(converted, bound), vx::kernels::scaledInto(bound, converted)))
                    << format;
            }
        }
    }
}

// That byte is nobody's, and Qt may change it.
TEST(Scaling, whateverRgb32HoldsForAlphaThePixelsAreQts)
{
    support::Random random(13);
    for (int round = 0; round < 300; ++round) {
        const QSize size = randomSize(random, 60);
        const QImage noise = support::noise(size.width(), size.height(), random.word());
        const QImage image(noise.constBits(), size.width(), size.height(), noise.bytesPerLine(),
            QImage::Format_RGB32);
        const QSize bound = randomSize(random, 60);
        ASSERT_EQ(scaledByQt(image, bound), vx::kernels::scaledInto(bound, image));
    }
}

TEST(Scaling, imagesOfEveryFormatAreScaledAsByQt)
{
    for (int format = 1; format < QImage::NImageFormats; ++format) {
        const QImage image
            = support::noise(50, 31, 1).convertToFormat(static_cast<QImage::Format>(format));
        for (const QSize& bound : { QSize(20, 20), QSize(100, 90), QSize(50, 31), QSize(7, 300) })
            EXPECT_EQ(scaledByQt(image, bound), vx::kernels::scaledInto(bound, image)) << format;
    }
}

// Qt keeps what an image has besides its pixels.
TEST(Scaling, opaquePixelsAreNotLeftToQt)
{
    for (const QImage::Format format : wordFormats) {
        QImage image = opaqueNoise({ 40, 30 }, 1, format);
        image.setText(QStringLiteral("Title"), QStringLiteral("Noise"));
        EXPECT_FALSE(scaledByQt(image, { 10, 10 }).textKeys().isEmpty());
        EXPECT_TRUE(vx::kernels::scaledInto({ 10, 10 }, image).textKeys().isEmpty()) << format;
    }
}

// Qt's steps along one side depend on the other where that shrinks a hundred times.
TEST(Scaling, sidesMayShrinkAsUnequallyAsTheyLike)
{
    for (const auto& [size, bound] : { std::pair(QSize(27283, 342), QSize(274, 274)),
             { QSize(23983, 239), QSize(240, 240) }, { QSize(29899, 184), QSize(299, 299) },
             { QSize(342, 27283), QSize(274, 274) }, { QSize(27283, 1), QSize(273, 273) } }) {
        const QImage image = opaqueNoise(size, 1, QImage::Format_ARGB32);
        EXPECT_EQ(scaledByQt(image, bound), vx::kernels::scaledInto(bound, image))
            << size.width() << " x " << size.height();
    }
}

TEST(Scaling, sidesMayBeLong)
{
    for (const QSize& size :
        { QSize(32767, 3), QSize(40000, 3), QSize(3, 32767), QSize(3, 40000) }) {
        const QImage image = opaqueNoise(size, 2, QImage::Format_ARGB32);
        for (const QSize& bound : { QSize(500, 500), QSize(35000, 35000) })
            EXPECT_EQ(scaledByQt(image, bound), vx::kernels::scaledInto(bound, image));
    }
}

TEST(Scaling, rowsMayBePaddedAndPixelsCountForMoreThanOne)
{
    const QImage noise = opaqueNoise({ 33, 20 }, 1, QImage::Format_RGB32);
    std::vector<QRgb> words(40 * 20);
    QImage padded(
        reinterpret_cast<uchar*>(words.data()), 33, 20, 40 * sizeof(QRgb), QImage::Format_RGB32);
    for (int y = 0; y < 20; ++y)
        std::copy_n(noise.constScanLine(y), 33 * sizeof(QRgb), padded.scanLine(y));
    for (const int ratio : { 1, 2 }) {
        padded.setDevicePixelRatio(ratio);
        ASSERT_EQ(padded.bytesPerLine(), 40 * static_cast<int>(sizeof(QRgb)));
        EXPECT_EQ(scaledByQt(padded, { 10, 10 }), vx::kernels::scaledInto({ 10, 10 }, padded))
            << "ratio " << ratio;
    }
}

TEST(Scaling, whatHasTheSizeOrNoBoundIsTheImageItself)
{
    const QImage image = support::noise(8, 6, 1);
    for (const QSize& bound :
        { QSize(8, 6), QSize(8, 60), QSize(80, 6), QSize(), QSize(-1, 5), QSize(5, -1) })
        EXPECT_EQ(vx::kernels::scaledInto(bound, image).constBits(), image.constBits());
}

TEST(Scaling, nothingIsLeftInABoundWithoutPixelsAndOfANullImage)
{
    const support::MessageTrap trap;
    const QImage pixel = support::noise(1, 1, 1);
    for (const QSize& bound : { QSize(0, 0), QSize(0, 5), QSize(5, 0) })
        EXPECT_TRUE(vx::kernels::scaledInto(bound, pixel).isNull());
    EXPECT_TRUE(vx::kernels::scaledInto({ 5, 5 }, QImage()).isNull());
    EXPECT_TRUE(trap.texts().isEmpty());
}
