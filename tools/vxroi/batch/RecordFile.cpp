#include "RecordFile.h"

#include "host/FileName.h"
#include "host/HostError.h"
#include "host/files/OutputFile.h"

#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace vxroi {

using host::ExitCode;
using host::HostError;

namespace {

bool isStillNamed(const QFile& file)
{
    struct stat opened = {};
    struct stat named = {};
    return fstat(file.handle(), &opened) == 0
        && stat(host::bytesOfName(file.fileName()).constData(), &named) == 0
        && opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
}

void open(QFile& file)
{
    const QFileInfo info(file);
    const bool isOther = info.exists() && !info.isFile();
    if (isOther || !file.open(QIODevice::ReadWrite))
        throw HostError(ExitCode::CannotCreate, file.fileName(),
            isOther ? QStringLiteral("is not a file") : file.errorString(),
            QStringLiteral("choose a folder that exists and can be written to"));
}

// Locks the file, and checks that it still has its name: a run that ends may have replaced it meanwhile. A file system
// without locks counts as locked, because there is nothing else to check.
bool tryLock(const QFile& file)
{
    const bool isLocked = flock(file.handle(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    return isLocked && isStillNamed(file);
}

// Opens and locks the file. Retries for two seconds, because a run that has just been killed may still hold the lock.
QFile& opened(QFile& file)
{
    constexpr int mostAttempts = 20;
    constexpr auto pause = std::chrono::milliseconds(100);
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        open(file);
        if (tryLock(file))
            return file;
        file.close();
        std::this_thread::sleep_for(pause);
    }
    throw HostError(ExitCode::CannotCreate, file.fileName(),
        QStringLiteral("is in use by another run"),
        QStringLiteral("wait until that has ended, or name another file"));
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
            QStringLiteral("free some space on the disk, and continue with --resume"));
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
        for (qint64 left = part.size; left > 0; left -= mostAtOnce) {
            const QByteArray bytes = file.read(std::min(left, mostAtOnce));
            requireWritten(bytes.size() == std::min(left, mostAtOnce));
            ordered.write(bytes);
        }
    }
    ordered.commit(true);
}

} // namespace vxroi
