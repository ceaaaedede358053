#include "ListReader.h"

#include "host/FileName.h"
#include "host/HostError.h"
#include "host/files/OutputFile.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

// Some editors write it at the beginning of a text.
constexpr const char* byteOrderMark = "\xef\xbb\xbf";

int openList(const QString& path)
{
    if (host::isStandardStream(path))
        return STDIN_FILENO;
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): open is declared with an ellipsis
    const int descriptor = open(host::bytesOfName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor == -1)
        throw HostError(ExitCode::MissingInput, path,
            QStringLiteral("cannot be opened: %1").arg(qt_error_string(errno)),
            QStringLiteral("name a list of pictures, or - for standard input"));
    return descriptor;
}

} // namespace

ListReader::ListReader(const QString& path, char entrySeparator)
    : displayName(host::isStandardStream(path) ? QStringLiteral("standard input") : path)
    , separator(entrySeparator)
    , source(openList(path))
{
}

ListReader::~ListReader()
{
    if (source != STDIN_FILENO)
        close(source);
}

std::optional<ListEntry> ListReader::next()
{
    for (;;) {
        const int end = unread.indexOf(separator, searched);
        if (end != -1)
            return take(end);
        searched = unread.size();
        if (unread.size() > mostBytes) {
            discardedBytes += unread.size();
            unread.clear();
            searched = 0;
        }
        if (discardedBytes / 1000 > mostBytes)
            throwBadList(QStringLiteral("does not end"));
        if (hasEnded && (!unread.isEmpty() || discardedBytes > 0))
            return take(unread.size());
        if (hasEnded || !readMore())
            return std::nullopt;
    }
}

std::optional<ListEntry> ListReader::waitForNext()
{
    constexpr int forever = -1;
    std::optional<ListEntry> entry = next();
    while (!entry && !isAtEnd()) {
        pollfd waiting { source, POLLIN, 0 };
        poll(&waiting, 1, forever);
        entry = next();
    }
    return entry;
}

// Reads what has arrived, without waiting. Returns whether there were bytes or the end.
bool ListReader::readMore()
{
    constexpr int mostAtOnce = 1 << 16;
    pollfd waiting { source, POLLIN, 0 };
    if (poll(&waiting, 1, 0) <= 0)
        return false;
    std::array<char, mostAtOnce> part {};
    const ssize_t count = read(source, part.data(), part.size());
    if (count > 0)
        unread.append(part.data(), static_cast<int>(count));
    hasEnded = count == 0;
    if (count == -1 && errno != EINTR && errno != EAGAIN)
        throwBadList(qt_error_string(errno));
    return count >= 0;
}

ListEntry ListReader::take(int size)
{
    ListEntry entry { unread.left(size), ++entryCount, discardedBytes > 0 || size > mostBytes };
    unread.remove(0, size + 1);
    searched = 0;
    discardedBytes = 0;
    if (entry.isTooLong)
        entry.bytes.clear();
    if (separator == '\n' && entry.bytes.endsWith('\r'))
        entry.bytes.chop(1);
    if (separator == '\n' && entry.number == 1 && entry.bytes.startsWith(byteOrderMark))
        entry.bytes.remove(0, static_cast<int>(qstrlen(byteOrderMark)));
    return entry;
}

QString ListReader::placeOf(const ListEntry& entry) const
{
    return QStringLiteral("%1, %2 %3")
        .arg(displayName, separator == '\n' ? QStringLiteral("line") : QStringLiteral("entry"))
        .arg(entry.number);
}

void ListReader::throwBadList(const QString& reason) const
{
    throw HostError(ExitCode::UnreadableInput, placeOf({ {}, entryCount + 1 }), reason,
        QStringLiteral("give a list of pictures, one on each line, or NUL-terminated with -0"));
}

} // namespace vxroi
