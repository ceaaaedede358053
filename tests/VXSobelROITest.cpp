#include <VXRegionOfInterest/VXSobelROI.h>

#include "kernels/edges/EdgeResponse.h"
#include "support/ImageAssert.h"
#include "support/MessageTrap.h"
#include "support/TestImages.h"

namespace {

// Black on the left and white on the right of column 4.
QImage verticalLine()
{
    QImage image(9, 7, QImage::Format_ARGB32);
    image.fill(Qt::black);
    for (int y = 0; y < 7; ++y) {
        for (int x = 4; x < 9; ++x)
            image.setPixel(x, y, qRgb(255, 255, 255));
    }
    return image;
}

QImage filled(const QImage& like, QRgb colour)
{
    QImage image(like.size(), QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

constexpr vx::kernels::Kernel3x3 horizontalKernel { 1, 2, 1, 0, 0, 0, -1, -2, -1 };
constexpr vx::kernels::Kernel3x3 verticalKernel { 1, 0, -1, 2, 0, -2, 1, 0, -1 };

// What convolute() gives after configureSobelH() or configureSobelV().
QImage plainResponse(const QImage& image, const vx::kernels::Kernel3x3& kernel)
{
    const QImage source = image.convertToFormat(QImage::Format_ARGB32);
    QImage response(source.size(), QImage::Format_ARGB32);
    vx::kernels::reference::respondToKernel(source, kernel, 12, response);
    return response;
}

// Answers every kernel with the same response, to show that evaluate() asks through the virtual
// call.
class WhiteResponses : public VXSobelROI {
public:
    QImage convolute(const QImage& image) const override { return filled(image, 0xFFFFFFFF); }
};

} // namespace

TEST(VXSobelROI, isEnabledWithWeightZeroWhenFresh)
{
    VXSobelROI method;
    EXPECT_TRUE(method.isEnabled());
    EXPECT_EQ(method.getWeight(), 0);
}

TEST(VXSobelROI, kernelsWeighEight)
{
    VXSobelROI method;
    EXPECT_EQ(method.totalWeight(), 8);
    method.configureSobelV();
    EXPECT_EQ(method.totalWeight(), 8);
    method.configureSobelH();
    EXPECT_EQ(method.totalWeight(), 8);
}

TEST(VXSobelROI, respondsToAVerticalLineWithTheVerticalKernelOnly)
{
    VXSobelROI method;
    const QImage horizontal = method.convolute(verticalLine()); // the constructor's kernel
    EXPECT_TRUE(support::sameImage(filled(verticalLine(), 0xFF000000), horizontal));
    method.configureSobelV();
    const QImage vertical = method.convolute(verticalLine());
    for (int y = 0; y < 7; ++y) {
        for (int x = 0; x < 9; ++x)
            EXPECT_EQ(qRed(vertical.pixel(x, y)), x == 3 || x == 4 ? 255 : 0) << x << ", " << y;
    }
    EXPECT_EQ(qRed(method.combine(horizontal, vertical).pixel(4, 3)), 255);
}

TEST(VXSobelROI, appliesTheKernelsAsTheyStand)
{
    VXSobelROI method;
    for (const QImage& image : support::variedImages(11, 9, 1)) {
        method.configureSobelH();
        EXPECT_TRUE(
            support::sameImage(plainResponse(image, horizontalKernel), method.convolute(image)));
        method.configureSobelV();
        EXPECT_TRUE(
            support::sameImage(plainResponse(image, verticalKernel), method.convolute(image)));
    }
}

TEST(VXSobelROI, borderPixelsRepeatTheirInnerNeighbour)
{
    const QImage response = VXSobelROI().convolute(support::noise(8, 6, 2));
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 8; ++x)
            EXPECT_EQ(response.pixel(x, y), response.pixel(qBound(1, x, 6), qBound(1, y, 4)));
    }
}

TEST(VXSobelROI, combinedMagnitudeWrapsAbove255)
{
    VXSobelROI method;
    const QImage white = filled(verticalLine(), 0xFFFFFFFF);
    EXPECT_EQ(method.combine(white, white).pixel(3, 3), qRgb(104, 104, 104)); // 360 - 256
    const QImage three = filled(verticalLine(), qRgba(3, 9, 9, 70));
    const QImage four = filled(verticalLine(), qRgba(4, 1, 1, 200));
    EXPECT_EQ(method.combine(three, four).pixel(3, 3), qRgba(5, 5, 5, 70));
}

TEST(VXSobelROI, combineTakesWhatTheSecondResponseLacksAsZero)
{
    VXSobelROI method;
    const QImage white = filled(verticalLine(), 0xFFFFFFFF);
    const QImage combined = method.combine(white, white.copy(0, 0, 2, 3));
    EXPECT_EQ(qRed(combined.pixel(1, 2)), 104);
    EXPECT_EQ(qRed(combined.pixel(2, 2)), 255);
    EXPECT_EQ(qRed(combined.pixel(1, 3)), 255);
    EXPECT_EQ(qRed(method.combine(white, QImage()).pixel(0, 0)), 255);
    EXPECT_TRUE(method.combine(QImage(), white).isNull());
}

TEST(VXSobelROI, combineKeepsA32BitFormatAndConvertsOthers)
{
    VXSobelROI method;
    const QImage grey = support::noise(6, 5, 3).convertToFormat(QImage::Format_Grayscale8);
    EXPECT_EQ(method.combine(grey, grey).format(), QImage::Format_ARGB32);
    const QImage rgb = support::noise(6, 5, 3).convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(method.combine(rgb, grey).format(), QImage::Format_RGB32);
    EXPECT_TRUE(support::sameImage(method.combine(rgb, grey.convertToFormat(QImage::Format_ARGB32)),
        method.combine(rgb, grey)));
}

TEST(VXSobelROI, mapIsOpaqueBlackForEveryImage)
{
    for (const QSize& size :
        { QSize(1, 1), QSize(2, 5), QSize(5, 2), QSize(3, 3), QSize(64, 48) }) {
        for (const QImage& image : support::variedImages(size.width(), size.height(), 4))
            EXPECT_TRUE(
                support::sameImage(filled(image, 0xFF000000), VXSobelROI().evaluate(image)));
    }
}

TEST(VXSobelROI, evaluateAsksThroughTheVirtualCallAndLeavesTheVerticalKernelBehind)
{
    WhiteResponses white;
    EXPECT_EQ(white.evaluate(verticalLine()).pixel(4, 3), qRgb(104, 104, 104));

    VXSobelROI method;
    method.evaluate(verticalLine());
    EXPECT_EQ(qRed(method.convolute(verticalLine()).pixel(4, 3)), 255);
}

TEST(VXSobelROI, responsesOfImagesBelowThreePixelsAreOpaqueBlack)
{
    for (const QSize& size : { QSize(1, 1), QSize(2, 2), QSize(2, 50), QSize(50, 1) }) {
        const QImage image = support::noise(size.width(), size.height(), 5);
        EXPECT_TRUE(support::sameImage(filled(image, 0xFF000000), VXSobelROI().convolute(image)));
    }
}

TEST(VXSobelROI, returnsNullImagesForANullImageWithoutAMessage)
{
    const support::MessageTrap trap;
    VXSobelROI method;
    EXPECT_TRUE(method.evaluate(QImage()).isNull());
    EXPECT_TRUE(method.convolute(QImage()).isNull());
    EXPECT_TRUE(method.combine(QImage(), QImage()).isNull());
    EXPECT_TRUE(trap.texts().isEmpty());
}

TEST(VXSobelROI, convolutesEveryFormatAsArgb32)
{
    for (int format = 1; format < QImage::NImageFormats; ++format) {
        const QImage image
            = support::noise(12, 9, 6).convertToFormat(static_cast<QImage::Format>(format));
        EXPECT_TRUE(support::sameImage(
            plainResponse(image, horizontalKernel), VXSobelROI().convolute(image)))
            << format;
    }
}
