#include <VXRegionOfInterest/VXAbstractROI.h>

#include "support/ImageAssert.h"
#include "support/MessageTrap.h"
#include "support/TestImages.h"

#include <climits>
#include <memory>
#include <type_traits>

namespace {

// The least that a host has to write for a method of its own.
class WhiteROI : public VXAbstractROI {
public:
    explicit WhiteROI(bool* destroyed = nullptr)
        : destroyedFlag(destroyed)
    {
    }
    WhiteROI(const WhiteROI&) = default;
    WhiteROI& operator=(const WhiteROI&) = default;
    ~WhiteROI() override
    {
        if (destroyedFlag != nullptr)
            *destroyedFlag = true;
    }
    QImage evaluate(const QImage& image) override
    {
        QImage map = createTargetImage(image);
        map.fill(Qt::white);
        return map;
    }

private:
    bool* destroyedFlag;
};

} // namespace

TEST(VXAbstractROI, isEnabledWithWeightZeroWhenFresh)
{
    WhiteROI method;
    EXPECT_TRUE(method.isEnabled());
    EXPECT_EQ(method.getWeight(), 0);
}

TEST(VXAbstractROI, storesTheSwitch)
{
    WhiteROI method;
    method.setEnabled(false);
    EXPECT_FALSE(method.isEnabled());
    method.setEnabled(true);
    EXPECT_TRUE(method.isEnabled());
}

TEST(VXAbstractROI, storesAnyWeightUnchanged)
{
    WhiteROI method;
    for (const int weight : { 20, -10, 0, INT_MAX, INT_MIN }) {
        method.setWeight(weight);
        EXPECT_EQ(method.getWeight(), weight);
    }
}

TEST(VXAbstractROI, keepsTheSignaturesThatHostsCompileAgainst)
{
    EXPECT_TRUE((std::is_same_v<decltype(&VXAbstractROI::getWeight), int (VXAbstractROI::*)()>));
    EXPECT_TRUE(
        (std::is_same_v<decltype(&VXAbstractROI::isEnabled), bool (VXAbstractROI::*)() const>));
    EXPECT_TRUE(std::is_abstract_v<VXAbstractROI>);
}

TEST(VXAbstractROI, evaluatesAndDestroysThroughTheBase)
{
    bool destroyed = false;
    std::unique_ptr<VXAbstractROI> method = std::make_unique<WhiteROI>(&destroyed);
    EXPECT_EQ(support::reds(method->evaluate(support::noise(2, 1, 1))), (std::vector { 255, 255 }));
    method.reset();
    EXPECT_TRUE(destroyed);
}

TEST(VXAbstractROI, evaluatesWhileSwitchedOff)
{
    WhiteROI method;
    method.setEnabled(false);
    EXPECT_FALSE(method.evaluate(support::noise(2, 2, 1)).isNull());
}

TEST(VXAbstractROI, createsAnArgb32TargetOfTheSourceSize)
{
    const WhiteROI method;
    for (const QImage::Format format : { QImage::Format_RGB32, QImage::Format_Grayscale8,
             QImage::Format_Mono, QImage::Format_RGBA64 }) {
        const QImage target = method.createTargetImage(QImage(7, 5, format));
        EXPECT_EQ(target.size(), QSize(7, 5));
        EXPECT_EQ(target.format(), QImage::Format_ARGB32);
    }
}

TEST(VXAbstractROI, createsANullTargetForANullSourceWithoutAMessage)
{
    const support::MessageTrap trap;
    const WhiteROI method;
    EXPECT_TRUE(method.createTargetImage(QImage()).isNull());
    EXPECT_TRUE(method.createTargetImage(QImage(0, 4, QImage::Format_ARGB32)).isNull());
    EXPECT_TRUE(method.adjustFormat(QImage()).isNull());
    EXPECT_TRUE(trap.texts().isEmpty());
}

TEST(VXAbstractROI, adjustFormatSharesTheDataOfAnArgb32Image)
{
    const QImage source = support::noise(9, 4, 2);
    const QImage adjusted = WhiteROI().adjustFormat(source);
    EXPECT_EQ(adjusted.constBits(), source.constBits());
}

TEST(VXAbstractROI, adjustFormatConvertsEveryOtherFormat)
{
    const QImage source = support::noise(9, 4, 3);
    for (const QImage::Format format : { QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied,
             QImage::Format_RGB888, QImage::Format_RGBA8888, QImage::Format_Indexed8 }) {
        const QImage other = source.convertToFormat(format);
        const QImage adjusted = WhiteROI().adjustFormat(other);
        EXPECT_NE(adjusted.constBits(), other.constBits());
        EXPECT_TRUE(support::sameImage(other.convertToFormat(QImage::Format_ARGB32), adjusted));
    }
}

TEST(VXAbstractROI, adjustFormatUndoesThePremultiplication)
{
    QImage source(1, 1, QImage::Format_ARGB32_Premultiplied);
    source.fill(Qt::transparent);
    *reinterpret_cast<QRgb*>(source.scanLine(0)) = 0x80800000; // half covered, all of it red
    EXPECT_EQ(qRed(WhiteROI().adjustFormat(source).pixel(0, 0)), 255);
}
