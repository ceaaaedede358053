#include "OutputFile.h"

#include "host/FileName.h"
#include "host/HostError.h"
#include "host/Remedies.h"
#include "host/StandardStreams.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace host {

namespace {

constexpr QLatin1String draftPrefix(".vxroi-", 7);

[[noreturn]] void throwWriteFailed(const QString& path, const QString& reason)
{
    throw HostError(ExitCode::WriteFailed, path, reason,
        QStringLiteral("free some space on the disk or choose another folder"));
}

// Opens a file without a name, which disappears with the process; -1 where the file system does not support that.
int openUnnamed(const QString& folder)
{
    constexpr mode_t readableByAll = 0666; // before the umask
    if (access("/proc/self/fd", X_OK) != 0)
        return -1; // it could not be named later
    const QByteArray path = bytesOfName(folder);
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): open is declared with an ellipsis
    return open(path.constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, readableByAll);
}

bool nameUnnamed(int descriptor, const QByteArray& name)
{
    const std::string source = "/proc/self/fd/" + std::to_string(descriptor);
    return linkat(AT_FDCWD, source.c_str(), AT_FDCWD, name.constData(), AT_SYMLINK_FOLLOW) == 0;
}

// Renames only if \a to does not exist. Where the file system lacks such a rename, a hard link fails the same way.
bool renameToFreeName(const QByteArray& from, const QByteArray& to)
{
    if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
    return link(from.constData(), to.constData()) == 0 && unlink(from.constData()) == 0;
}

} // namespace

void requireReplaceable(const QString& output)
{
    const QFileInfo existing(output);
    if (existing.isSymLink() && !existing.exists())
        throw HostError(ExitCode::CannotCreate, output, QStringLiteral("is a link to nothing"),
            QStringLiteral("remove the link or choose another name"));
    if (existing.exists() && !existing.isFile())
        throw HostError(ExitCode::CannotCreate, output, QStringLiteral("exists and is not a file"),
            QStringLiteral("choose another name"));
}

bool isDraft(const QString& path) { return QFileInfo(path).fileName().startsWith(draftPrefix); }

void throwAlreadyExists(const QString& output)
{
    throw HostError(ExitCode::CannotCreate, output, QStringLiteral("already exists"),
        remedies().existingOutput);
}

void createFolder(const QString& path)
{
    if (!QDir().mkpath(path))
        throw HostError(ExitCode::CannotCreate, path, QStringLiteral("cannot be created"),
            QStringLiteral("name a folder, or a path where one can be created"));
}

OutputFile::OutputFile(QString path)
    : name(std::move(path))
{
    if (isStandardStream(name))
        return;
    requireReplaceable(name);
    const QFileInfo existing(name);
    if (existing.exists() && !existing.isWritable())
        throw HostError(ExitCode::CannotCreate, name, QStringLiteral("is write-protected"),
            QStringLiteral("change its permissions or choose another name"));
    target = existing.exists() ? existing.canonicalFilePath() : name;
    constexpr int hexadecimal = 16;
    draft = QStringLiteral("%1/%2%3")
                .arg(QFileInfo(target).path(), draftPrefix)
                .arg(QRandomGenerator::global()->generate64(), 16, hexadecimal, QLatin1Char('0'));
    const int unnamed = openUnnamed(QFileInfo(target).path());
    isNamed = unnamed == -1;
    if (isNamed) {
        file.setFileName(draft);
        file.open(QIODevice::WriteOnly | QIODevice::NewOnly);
    } else {
        file.open(unnamed, QIODevice::WriteOnly, QFile::AutoCloseHandle);
    }
    if (!file.isOpen())
        throw HostError(ExitCode::CannotCreate, name, file.errorString(),
            QStringLiteral("choose a folder that exists and can be written to"));
    struct stat status = {};
    if (stat(bytesOfName(target).constData(), &status) == 0)
        fchmod(file.handle(), status.st_mode);
}

OutputFile::~OutputFile()
{
    if (file.isOpen() && isNamed)
        QFile::remove(draft);
}

void OutputFile::write(const QByteArray& bytes)
{
    if (isStandardStream(name))
        streamContent += bytes;
    // When the disk fills up, the first failing write is short and sets no error.
    else if (file.write(bytes) != bytes.size() || !file.flush())
        throwWriteFailed(name,
            file.error() == QFileDevice::NoError ? QStringLiteral("no room left")
                                                 : file.errorString());
}

void OutputFile::commit(bool mayReplace)
{
    if (isStandardStream(name)) {
        writeOutput(streamContent);
        return;
    }
    if (fsync(file.handle()) != 0)
        throwWriteFailed(name, qt_error_string(errno));
    if (!moveIntoPlace(mayReplace)) {
        if (errno == EEXIST)
            throwAlreadyExists(name);
        if (errno == ENAMETOOLONG)
            throw HostError(ExitCode::CannotCreate, name, qt_error_string(errno),
                QStringLiteral("choose a shorter name"));
        throwWriteFailed(name, qt_error_string(errno));
    }
    file.close();
}

bool OutputFile::moveIntoPlace(bool mayReplace)
{
    const QByteArray to = bytesOfName(target);
    const QByteArray from = bytesOfName(draft);
    if (!isNamed) {
        if (nameUnnamed(file.handle(), to))
            return true;
        // Replacing a file needs a rename, and so a name.
        isNamed = errno == EEXIST && mayReplace && nameUnnamed(file.handle(), from);
        if (!isNamed)
            return false;
    }
    return mayReplace ? std::rename(from.constData(), to.constData()) == 0
                      : renameToFreeName(from, to);
}

} // namespace host
