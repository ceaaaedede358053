#include "Bitmap.h"

#include "QtPixels.h"

#include <QBuffer>
#include <QImageReader>
#include <QImageWriter>

#include <cstdlib>

namespace host {

namespace {

// Notices when a decoder reads past the end: Qt's reports no error and fills in black.
class EndDetector : public QIODevice {
public:
    explicit EndDetector(QIODevice& device)
        : source(device)
    {
        source.seek(0);
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    bool isExhausted() const { return hasEnded; }
    bool seek(qint64 position) override
    {
        return QIODevice::seek(position) && source.seek(position);
    }
    qint64 size() const override { return source.size(); }

protected:
    qint64 readData(char* data, qint64 length) override
    {
        const qint64 count = source.read(data, length);
        hasEnded = hasEnded || count < length;
        return count;
    }
    qint64 writeData(const char* /*data*/, qint64 /*length*/) override { return -1; }

private:
    QIODevice& source;
    bool hasEnded = false;
};

} // namespace

bool isBitmap(QIODevice& device)
{
    device.seek(0);
    return device.peek(2) == "BM";
}

QSize bitmapSize(QIODevice& device)
{
    device.seek(0);
    const QSize size = QImageReader(&device, "bmp").size();
    return { size.width(), std::abs(size.height()) }; // negative where the top row comes first
}

std::optional<vips::VImage> readBitmap(QIODevice& device, bool& isWhole)
{
    EndDetector detector(device);
    const QImage image = QImageReader(&detector, "bmp").read();
    isWhole = !detector.isExhausted();
    if (image.isNull())
        return std::nullopt;
    return toVipsImage(image);
}

QByteArray encodedBitmap(const QImage& image)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!QImageWriter(&buffer, "bmp").write(image))
        throw vips::VError("too large for a BMP");
    return buffer.data();
}

} // namespace host
