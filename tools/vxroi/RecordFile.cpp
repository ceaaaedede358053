#include "RecordFile.h"

#include "host/HostError.h"
#include "host/OutputFile.h"

#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <sys/file.h>
#include <unistd.h>

namespace vxroi {

using host::ExitCode;
using host::HostError;

namespace {

QFile& opened(QFile& file)
{
    const QString path = file.fileName();
    const QFileInfo info(path);
    if ((info.exists() && !info.isFile()) || !file.open(QIODevice::ReadWrite))
        throw HostError(ExitCode::CannotCreate, path,
            file.error() == QFileDevice::NoError ? QStringLiteral("is not a file")
                                                 : file.errorString(),
            QStringLiteral("choose a folder that exists and can be written to"));
    // Where the file system has no locks, there is nothing to go by.
    if (flock(file.handle(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        throw HostError(ExitCode::CannotCreate, path, QStringLiteral("is in use by another run"),
            QStringLiteral("wait until that has ended, or name another file"));
    return file;
}

} // namespace

RecordFile::RecordFile(const QString& path)
    : file(path)
    , earlierRecords(opened(file))
{
    earlierRecords.cutDamagedEnd();
    file.seek(file.size());
}

void RecordFile::write(const QByteArray& record)
{
    const qint64 offset = file.size();
    requireWritten(file.write(record) == record.size() && file.flush());
    keep({ offset, record.size() });
}

void RecordFile::requireWritten(bool isWritten) const
{
    if (!isWritten)
        throw HostError(ExitCode::WriteFailed, file.fileName(), QStringLiteral("cannot be written"),
            QStringLiteral("make room, and go on with --resume"));
}

void RecordFile::keep(const RecordPlace& record)
{
    const bool isNext = !parts.empty() && parts.back().offset + parts.back().size == record.offset;
    if (isNext)
        parts.back().size += record.size;
    else
        parts.push_back(record);
}

bool RecordFile::isInOrder() const
{
    if (parts.empty())
        return file.size() == 0;
    return parts.size() == 1 && parts.front().offset == 0 && parts.front().size == file.size();
}

void RecordFile::finish()
{
    constexpr qint64 mostAtOnce = 1 << 20;
    if (isInOrder()) {
        requireWritten(fsync(file.handle()) == 0);
        return;
    }
    host::OutputFile ordered(file.fileName());
    for (const RecordPlace& part : parts) {
        file.seek(part.offset);
        for (qint64 left = part.size; left > 0; left -= mostAtOnce)
            ordered.write(file.read(std::min(left, mostAtOnce)));
    }
    ordered.commit(true);
}

} // namespace vxroi
