#include "SampleFiles.h"

#include "scenes/SampleScenes.h"

#include <QBuffer>
#include <QDataStream>
#include <QDir>
#include <QFile>

#include <zlib.h>

namespace samples {

SampleFolder::SampleFolder() = default;

QString SampleFolder::path(const QString& name) const { return folder.filePath(name); }

QString SampleFolder::save(const QImage& image, const QString& name) const
{
    if (!image.save(path(name)))
        throw std::runtime_error("cannot save " + name.toStdString());
    return path(name);
}

QString SampleFolder::save(const QByteArray& bytes, const QString& name) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error("cannot save " + name.toStdString());
    return path(name);
}

QStringList SampleFolder::names() const
{
    return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

QImage picture(const QSize& size)
{
    static const QImage balloon = scenes::drawBalloon();
    return balloon.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QByteArray encoded(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, format))
        throw std::runtime_error(std::string("cannot encode as ") + format);
    return bytes;
}

QByteArray jpegWithOrientation(const QImage& image, char orientation)
{
    // An APP1 segment with one little-endian TIFF directory that has one entry, the orientation.
    QByteArray exif = QByteArray::fromHex("FFE10022"
                                          "457869660000" // "Exif", 0, 0
                                          "49492A0008000000" // TIFF header
                                          "0100" // one entry
                                          "120103000100000000000000" // orientation, one short
                                          "00000000"); // no further directory
    exif[28] = orientation;
    return encoded(image, "jpg").insert(2, exif); // after the start-of-image marker
}

QByteArray pngClaiming(const QSize& size, int bytes)
{
    const auto chunk = [](const QByteArray& kind, const QByteArray& content) {
        QByteArray whole;
        QDataStream stream(&whole, QIODevice::WriteOnly);
        const QByteArray checked = kind + content;
        stream << static_cast<quint32>(content.size());
        stream.writeRawData(checked.constData(), checked.size());
        stream << static_cast<quint32>(crc32(0, reinterpret_cast<const Bytef*>(checked.constData()),
            static_cast<uInt>(checked.size())));
        return whole;
    };
    QByteArray header;
    QDataStream stream(&header, QIODevice::WriteOnly);
    stream << static_cast<quint32>(size.width()) << static_cast<quint32>(size.height())
           << quint8 { 8 } << quint8 { 2 } << quint8 { 0 } << quint8 { 0 } << quint8 { 0 };
    return QByteArray::fromHex("89504E470D0A1A0A") + chunk("IHDR", header)
        + chunk("IDAT", qCompress(QByteArray(bytes * 1000, 0)).mid(4))
        + chunk("IEND", QByteArray());
}

QByteArray truncated(const QByteArray& bytes, int percent)
{
    return bytes.left(bytes.size() * percent / 100);
}

} // namespace samples
