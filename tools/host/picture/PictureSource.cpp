#include "PictureSource.h"

#include "host/FileName.h"
#include "host/HostError.h"
#include "host/Remedies.h"

#include <QBuffer>
#include <QFile>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <limits>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace host {

namespace {

[[noreturn]] void throwTooLarge(const QString& path, qint64 mostBytes)
{
    throw retryableReadError(path, QStringLiteral("the file has more than %1 bytes").arg(mostBytes),
        remedies().tooManyBytes);
}

[[noreturn]] void throwNotOpened(const QString& path, const QFileDevice& file)
{
    const bool areTooManyOpen = file.error() == QFileDevice::ResourceError;
    throw HostError(ExitCode::MissingInput, path, file.errorString(),
        areTooManyOpen ? QStringLiteral("allow more, see ulimit -n")
                       : QStringLiteral("check its permissions"));
}

// Reads a pipe to its end, because a decoder may seek. Gives up when nothing arrives for \a mostSeconds: a pipe may
// have no writer, or one that has stopped.
std::unique_ptr<QIODevice> contentOfPipe(
    const QString& path, int descriptor, int mostSeconds, qint64 mostBytes)
{
    QFile pipe;
    if (!pipe.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered, QFile::AutoCloseHandle))
        throwNotOpened(path, pipe);
    auto content = std::make_unique<QBuffer>();
    content->open(QIODevice::ReadWrite);
    while (content->size() <= mostBytes) {
        pollfd waiting { descriptor, POLLIN, 0 };
        if (poll(&waiting, 1, mostSeconds * 1000) <= 0)
            throw retryableReadError(path,
                QStringLiteral("nothing was written to the pipe for %1 seconds").arg(mostSeconds),
                QStringLiteral("check the program that writes to it"));
        const QByteArray part = pipe.read(1 << 20);
        if (part.isEmpty())
            break;
        content->write(part);
    }
    if (content->size() > mostBytes)
        throwTooLarge(path, mostBytes);
    // A writable buffer would grow when a decoder seeks past its end.
    content->close();
    content->open(QIODevice::ReadOnly);
    return content;
}

std::unique_ptr<QIODevice> contentOfPipe(const QString& path, qint64 mostBytes)
{
    const QByteArray encoded = QFile::encodeName(path);
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): open is declared with an ellipsis
    const int descriptor = open(encoded.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    constexpr int patience = 10;
    return contentOfPipe(path, descriptor, patience, mostBytes);
}

std::unique_ptr<QIODevice> contentOfStandardInput(qint64 mostBytes)
{
    const QString name = QStringLiteral("standard input");
    if (isatty(STDIN_FILENO) == 1)
        throw HostError(ExitCode::MissingInput, name, QStringLiteral("is a terminal"),
            QStringLiteral("redirect a picture to it, such as with < picture.jpg"));
    constexpr int patience = 60; // earlier programs of the pipeline may be slow to start
    return contentOfPipe(name, dup(STDIN_FILENO), patience, mostBytes);
}

std::unique_ptr<QIODevice> openFile(const QString& path, qint64 mostBytes)
{
    auto file = std::make_unique<QFile>(path);
    if (!file->open(QIODevice::ReadOnly))
        throwNotOpened(path, *file);
    if (file->size() > mostBytes)
        throwTooLarge(path, mostBytes);
    return file;
}

struct Reader {
    QIODevice& device;
    const Deadline& deadline;
};

gint64 readFrom(VipsSourceCustom* /*source*/, void* buffer, gint64 length, Reader* reader)
{
    if (reader->deadline.hasPassed())
        return -1;
    return reader->device.read(static_cast<char*>(buffer), length);
}

gint64 seekIn(VipsSourceCustom* /*source*/, gint64 offset, int whence, QIODevice* device)
{
    const qint64 origin = whence == SEEK_CUR ? device->pos()
        : whence == SEEK_END                 ? device->size()
                                             : 0;
    return device->seek(origin + offset) ? device->pos() : -1;
}

std::unique_ptr<QIODevice> openFileOrPipe(const QString& path, qint64 mostBytes)
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
        throw HostError(ExitCode::MissingInput, path, QStringLiteral("is not a file"),
            QStringLiteral("name a picture file, or a pipe"));
    return S_ISFIFO(status.st_mode) ? contentOfPipe(path, mostBytes) : openFile(path, mostBytes);
}

} // namespace

std::unique_ptr<QIODevice> openPicture(const QString& path, qint64 mostBytes)
{
    std::unique_ptr<QIODevice> device = isStandardStream(path) ? contentOfStandardInput(mostBytes)
                                                               : openFileOrPipe(path, mostBytes);
    if (device->size() == 0)
        throw HostError(ExitCode::UnreadableInput, path, QStringLiteral("the file is empty"),
            QStringLiteral("get a complete copy"));
    return device;
}

vips::VSource sourceOf(QIODevice& device, const Deadline& deadline)
{
    device.seek(0);
    VipsSourceCustom* const source = vips_source_custom_new();
    const auto forget = [](gpointer reader, GClosure*) { delete static_cast<Reader*>(reader); };
    g_signal_connect_data(source, "read", reinterpret_cast<GCallback>(readFrom),
        new Reader { device, deadline }, forget, GConnectFlags());
    g_signal_connect(source, "seek", reinterpret_cast<GCallback>(seekIn), &device);
    return vips::VSource(reinterpret_cast<VipsSource*>(source));
}

QByteArray contentOf(QIODevice& device)
{
    if (auto* const buffer = qobject_cast<QBuffer*>(&device))
        return buffer->data();
    auto* const file = qobject_cast<QFile*>(&device);
    if (file == nullptr)
        return {};
    const bool isAddressable = file->size() <= std::numeric_limits<int>::max();
    const uchar* const bytes = isAddressable ? file->map(0, file->size()) : nullptr;
    return bytes == nullptr ? QByteArray()
                            : QByteArray::fromRawData(reinterpret_cast<const char*>(bytes),
                                static_cast<int>(file->size()));
}

} // namespace host
