#include "support/ImageAssert.h"
#include "support/Operations.h"
#include "support/TestImages.h"

#include <QColorSpace>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

// A host's buffer, and an image over it that Qt does not own.
class ForeignImage {
public:
    explicit ForeignImage(const QImage& image)
        : bytes(image.constBits(), image.constBits() + image.sizeInBytes())
        , contents(bytes)
        , view(bytes.data(), image.width(), image.height(), image.bytesPerLine(), image.format())
    {
        if (image.colorCount() > 0)
            view.setColorTable(image.colorTable());
        view.setDevicePixelRatio(2);
        view.setOffset(QPoint(3, 4));
        view.setText(QStringLiteral("Title"), QStringLiteral("Foreign"));
    }

    const QImage& image() const { return view; }
    bool isUntouched() const { return bytes == contents; }

private:
    std::vector<uchar> bytes;
    std::vector<uchar> contents;
    QImage view;
};

// One colour, black among them, is what shortcuts are made for.
std::vector<QImage> pictures()
{
    QImage black(40, 30, QImage::Format_ARGB32);
    black.fill(Qt::black);
    QImage coloured(40, 30, QImage::Format_ARGB32);
    coloured.fill(qRgba(200, 3, 99, 255));
    QImage white(40, 30, QImage::Format_ARGB32);
    white.fill(Qt::white);
    return { black, coloured, white, support::noise(40, 30, 1) };
}

} // namespace

// The sanitizer sees a result that is read, or written, in the buffer that is gone.
TEST(OwnMemory, resultsOutliveTheBufferThatTheyWereMadeOf)
{
    for (const QImage::Format format :
        { QImage::Format_ARGB32, QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied,
            QImage::Format_Grayscale8, QImage::Format_RGB888, QImage::Format_Indexed8 }) {
        for (const QImage& picture : pictures()) {
            for (const support::Operation& operation : support::operations()) {
                SCOPED_TRACE(operation.name + ", format " + std::to_string(format));
                auto foreign = std::make_unique<ForeignImage>(picture.convertToFormat(format));
                QImage result = operation.run(foreign->image());
                const QImage before = result.copy();
                foreign.reset();
                ASSERT_TRUE(result == before || operation.makesNoPixels);
                if (!result.isNull())
                    std::fill_n(result.bits(), result.sizeInBytes(), uchar { 77 });
            }
        }
    }
}

TEST(OwnMemory, writingIntoAResultLeavesTheHostsBufferAlone)
{
    for (const QImage& picture : pictures()) {
        for (const support::Operation& operation : support::operations()) {
            SCOPED_TRACE(operation.name);
            // The image goes, the buffer stays: nobody shares the pixels then, and Qt detaches nothing.
            std::vector<uchar> bytes(
                picture.constBits(), picture.constBits() + picture.sizeInBytes());
            QImage result = operation.run(
                QImage(bytes.data(), picture.width(), picture.height(), QImage::Format_ARGB32));
            if (!result.isNull())
                std::fill_n(result.bits(), result.sizeInBytes(), uchar { 77 });
            ASSERT_TRUE(std::equal(bytes.begin(), bytes.end(), picture.constBits()));
        }
    }
}

TEST(OwnMemory, noOperationWritesIntoItsImage)
{
    for (const QImage& picture : pictures()) {
        for (const support::Operation& operation : support::operations()) {
            const ForeignImage foreign(picture);
            operation.run(foreign.image());
            EXPECT_TRUE(foreign.isUntouched()) << operation.name;
        }
    }
}

// What is made anew has the properties of a new image, what is copied those of a copy.
TEST(OwnMemory, resultsHaveThePropertiesOfANewImageOrOfACopy)
{
    for (const QImage& picture : pictures()) {
        for (const support::Operation& operation : support::operations()) {
            SCOPED_TRACE(operation.name);
            const ForeignImage foreign(picture);
            const QImage result = operation.run(foreign.image());
            if (result.isNull())
                continue;
            const QImage expected = operation.copiesProperties
                ? foreign.image().copy(foreign.image().rect())
                : QImage(1, 1, QImage::Format_ARGB32);
            EXPECT_EQ(result.devicePixelRatio(), expected.devicePixelRatio());
            EXPECT_EQ(result.offset(), expected.offset());
            EXPECT_EQ(result.textKeys(), expected.textKeys());
            EXPECT_EQ(result.dotsPerMeterX(), expected.dotsPerMeterX());
            EXPECT_EQ(result.colorSpace(), expected.colorSpace());
        }
    }
}
