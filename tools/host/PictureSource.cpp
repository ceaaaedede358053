#include "PictureSource.h"

#include "HostError.h"

#include <QBuffer>
#include <QDataStream>
#include <QFile>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>

namespace host {

namespace {

[[noreturn]] void throwTooLarge(const QString& path, qint64 mostBytes)
{
    throw HostError(ExitCode::UnreadableInput, path,
        QStringLiteral("the file has more than %1 bytes").arg(mostBytes),
        QStringLiteral("allow more with --max-bytes"));
}

[[noreturn]] void throwNotOpened(const QString& path, const QString& reason)
{
    throw HostError(ExitCode::MissingInput, path, reason, QStringLiteral("check its permissions"));
}

// A pipe is read to its end, because a decoder may begin anew. It may have no writer, or one that
// stopped: nobody waits for ever.
std::unique_ptr<QIODevice> contentOfPipe(const QString& path, qint64 mostBytes)
{
    constexpr int patience = 10'000; // milliseconds
    QFile pipe;
    const QByteArray encoded = QFile::encodeName(path);
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): open is declared with an ellipsis
    const int descriptor = open(encoded.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (!pipe.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered, QFile::AutoCloseHandle))
        throwNotOpened(path, pipe.errorString());
    auto content = std::make_unique<QBuffer>();
    content->open(QIODevice::ReadWrite);
    while (content->size() <= mostBytes) {
        pollfd waiting { descriptor, POLLIN, 0 };
        if (poll(&waiting, 1, patience) <= 0)
            throw HostError(ExitCode::UnreadableInput, path,
                QStringLiteral("nothing was written to the pipe for %1 seconds")
                    .arg(patience / 1000),
                QStringLiteral("check the program that writes to it"));
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

std::unique_ptr<QIODevice> openFile(const QString& path, qint64 mostBytes)
{
    auto file = std::make_unique<QFile>(path);
    if (!file->open(QIODevice::ReadOnly))
        throwNotOpened(path, file->errorString());
    if (file->size() > mostBytes)
        throwTooLarge(path, mostBytes);
    return file;
}

} // namespace

std::unique_ptr<QIODevice> openPicture(const QString& path, qint64 mostBytes)
{
    struct stat status = {};
    if (stat(QFile::encodeName(path).constData(), &status) != 0)
        throw HostError(ExitCode::MissingInput, path,
            errno == ENOENT ? QStringLiteral("no such file") : qt_error_string(errno),
            QStringLiteral("check the name and the folder"));
    if (S_ISDIR(status.st_mode))
        throw HostError(ExitCode::MissingInput, path, QStringLiteral("is a folder"),
            QStringLiteral("name a picture in it"));
    if (!S_ISREG(status.st_mode) && !S_ISFIFO(status.st_mode))
        throw HostError(ExitCode::MissingInput, path, QStringLiteral("is no file"),
            QStringLiteral("name a picture file, or a pipe"));
    std::unique_ptr<QIODevice> device
        = S_ISFIFO(status.st_mode) ? contentOfPipe(path, mostBytes) : openFile(path, mostBytes);
    if (device->size() == 0)
        throw HostError(ExitCode::UnreadableInput, path, QStringLiteral("the file is empty"),
            QStringLiteral("get a complete copy"));
    return device;
}

QSize gifScreenSize(QIODevice& device)
{
    const QByteArray header = device.read(10); // signature and version, width, height
    const auto number = [&header](int at) {
        return header.size() < 10
            ? 0
            : static_cast<uchar>(header.at(at)) | static_cast<uchar>(header.at(at + 1)) << 8;
    };
    return { number(6), number(8) };
}

bool isBmpCutShort(QIODevice& device)
{
    QDataStream stream(&device);
    stream.setByteOrder(QDataStream::LittleEndian);
    quint32 pixelsAt = 0;
    quint32 headerSize = 0;
    qint32 width = 0;
    qint32 height = 0;
    quint16 bitsPerPixel = 0;
    quint32 compression = 0;
    stream.skipRawData(10);
    stream >> pixelsAt >> headerSize >> width >> height;
    stream.skipRawData(2);
    stream >> bitsPerPixel >> compression;
    constexpr quint32 coreHeader = 12; // an older header, with other fields
    const bool isPlain = compression == 0 || compression == 3;
    if (stream.status() != QDataStream::Ok || headerSize <= coreHeader || !isPlain)
        return false;
    const qint64 rowBytes = (qint64 { width } * bitsPerPixel + 31) / 32 * 4;
    return device.size() < pixelsAt + rowBytes * std::abs(qint64 { height });
}

bool isGifCutShort(QIODevice& device)
{
    QDataStream stream(&device);
    const auto byte = [&stream] {
        quint8 value = 0;
        stream >> value;
        return value;
    };
    const auto skip = [&stream](int count) {
        if (stream.skipRawData(count) != count)
            stream.setStatus(QDataStream::ReadPastEnd);
    };
    const auto skipColours = [&](quint8 flags) {
        if ((flags & 0x80) != 0)
            skip(3 << ((flags & 7) + 1));
    };
    const auto skipBlocks = [&] {
        for (quint8 length = byte(); length != 0; length = byte())
            skip(length);
    };
    skip(10); // signature and size
    const quint8 flags = byte();
    skip(2);
    skipColours(flags);
    constexpr quint8 extension = 0x21;
    while (stream.status() == QDataStream::Ok && byte() == extension) {
        skip(1);
        skipBlocks();
    }
    skip(8); // where the frame lies
    skipColours(byte());
    skip(1);
    skipBlocks();
    return stream.status() != QDataStream::Ok;
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
