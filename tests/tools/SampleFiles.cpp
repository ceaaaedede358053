#include "SampleFiles.h"

#include "scenes/SampleScenes.h"

#include <QBuffer>
#include <QDir>
#include <QFile>

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
    return encoded(image, "jpg").insert(2, exif); // behind the start-of-image marker
}

QByteArray truncated(const QByteArray& bytes, int percent)
{
    return bytes.left(bytes.size() * percent / 100);
}

} // namespace samples
