#include "PictureSource.h"

#include "../HostError.h"

#include <QBuffer>
#include <QFile>

#include <cerrno>
#include <cstdio>
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

gint64 readFrom(VipsSourceCustom* /*source*/, void* buffer, gint64 length, QIODevice* device)
{
    return device->read(static_cast<char*>(buffer), length);
}

gint64 seekIn(VipsSourceCustom* /*source*/, gint64 offset, int whence, QIODevice* device)
{
    const qint64 origin = whence == SEEK_CUR ? device->pos()
        : whence == SEEK_END                 ? device->size()
                                             : 0;
    return device->seek(origin + offset) ? device->pos() : -1;
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

vips::VSource sourceOf(QIODevice& device)
{
    device.seek(0);
    VipsSourceCustom* const source = vips_source_custom_new();
    g_signal_connect(source, "read", reinterpret_cast<GCallback>(readFrom), &device);
    g_signal_connect(source, "seek", reinterpret_cast<GCallback>(seekIn), &device);
    return vips::VSource(reinterpret_cast<VipsSource*>(source));
}

} // namespace host
