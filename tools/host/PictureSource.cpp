#include "PictureSource.h"

#include "HostError.h"

#include <QBuffer>
#include <QDataStream>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace host {

namespace {

[[noreturn]] void throwTooLarge(const QString& path, qint64 mostBytes)
{
    throw HostError(ExitCode::UnreadableInput, path,
        QStringLiteral("the file has more than %1 bytes").arg(mostBytes),
        QStringLiteral("allow more with --max-bytes"));
}

// A pipe is read to its end, because a decoder may begin anew.
std::unique_ptr<QIODevice> contentOf(QIODevice& pipe, const QString& path, qint64 mostBytes)
{
    auto content = std::make_unique<QBuffer>();
    content->open(QIODevice::ReadWrite);
    while (content->size() <= mostBytes) {
        const QByteArray part = pipe.read(1 << 20);
        if (part.isEmpty())
            break;
        content->write(part);
    }
    if (content->size() > mostBytes)
        throwTooLarge(path, mostBytes);
    content->seek(0);
    return content;
}

} // namespace

std::unique_ptr<QIODevice> openPicture(const QString& path, qint64 mostBytes)
{
    const QFileInfo info(path);
    if (!info.exists())
        throw HostError(ExitCode::MissingInput, path, QStringLiteral("no such file"),
            QStringLiteral("check the name and the folder"));
    if (info.isDir())
        throw HostError(ExitCode::MissingInput, path, QStringLiteral("is a folder"),
            QStringLiteral("name a picture in it"));
    auto file = std::make_unique<QFile>(path);
    if (!file->open(QIODevice::ReadOnly))
        throw HostError(ExitCode::MissingInput, path, file->errorString(),
            QStringLiteral("check its permissions"));
    if (file->size() > mostBytes)
        throwTooLarge(path, mostBytes);
    std::unique_ptr<QIODevice> device = std::move(file);
    if (device->isSequential())
        device = contentOf(*device, path, mostBytes);
    if (device->size() == 0)
        throw HostError(ExitCode::UnreadableInput, path, QStringLiteral("the file is empty"),
            QStringLiteral("get a complete copy"));
    return device;
}

// The frame header says so, behind any number of other segments.
bool isCmykJpeg(QIODevice& device)
{
    QDataStream stream(&device);
    quint16 marker = 0;
    stream >> marker;
    while (stream.status() == QDataStream::Ok) {
        quint16 length = 0;
        stream >> marker >> length;
        const int kind = marker & 0xFF;
        const bool isFrame
            = kind >= 0xC0 && kind <= 0xCF && kind != 0xC4 && kind != 0xC8 && kind != 0xCC;
        if (isFrame) {
            quint8 channels = 0;
            stream.skipRawData(5); // depth, height and width
            stream >> channels;
            return stream.status() == QDataStream::Ok && channels == 4;
        }
        if (marker < 0xFF00 || length < 2 || stream.skipRawData(length - 2) != length - 2)
            return false;
    }
    return false;
}

} // namespace host
