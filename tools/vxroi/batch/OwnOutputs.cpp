#include "OwnOutputs.h"

#include "host/HostError.h"
#include "host/files/FileName.h"
#include "host/files/OutputFile.h"

#include <QDateTime>
#include <QFileInfo>
#include <QMutexLocker>

#include <algorithm>
#include <array>
#include <sys/stat.h>

namespace vxroi {

namespace {

// Entries are a mark and a name, and end in NUL, which is in no name.
constexpr char created = '+';
constexpr char notCreated = '-';
constexpr char remade
    = '~'; // before the name stands where the records ended, as in "~1234:out/a.png"

QByteArray entriesOf(char mark, const QStringList& paths)
{
    QByteArray entries;
    for (const QString& path : paths)
        entries += mark + host::bytesOfName(path) + '\0';
    return entries;
}

// At the end of a run the file goes or is written anew, so it must be no other's.
void requireEntries(const QList<QByteArray>& entries, const QString& path)
{
    constexpr std::array<char, 3> marks { created, notCreated, remade };
    const bool areEntries
        = std::all_of(entries.begin(), entries.end(), [&](const QByteArray& entry) {
              return entry.isEmpty() || std::count(marks.begin(), marks.end(), entry.at(0)) > 0;
          });
    if (!areEntries)
        throw host::HostError(host::ExitCode::Usage, path,
            QStringLiteral("does not list the outputs of a batch"),
            QStringLiteral("move it, or name another file of records"));
}

} // namespace

OwnOutputs::OwnOutputs(const QString& recordPath, const RecordIndex& earlierRecords)
    : file(recordPath + QStringLiteral(".outputs"))
    , records(earlierRecords)
    , lastWritten(std::max(records.modified(), QFileInfo(file).lastModified().toSecsSinceEpoch()))
{
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QByteArray content = file.readAll();
    file.close();
    QList<QByteArray> entries = content.split('\0');
    requireEntries(entries, file.fileName());
    const QByteArray cutShort = entries.takeLast();
    for (const QByteArray& entry : entries)
        read(entry);
    if (!cutShort.isEmpty())
        file.resize(content.size() - cutShort.size());
    for (const QString& path : unnamed) {
        if (host::isDraft(path))
            QFile::remove(path);
    }
}

void OwnOutputs::read(const QByteArray& entry)
{
    const int colon = entry.indexOf(':');
    if (entry.startsWith(created))
        unnamed.insert(host::textOfName(entry.mid(1)));
    else if (entry.startsWith(notCreated))
        unnamed.remove(host::textOfName(entry.mid(1)));
    else if (entry.startsWith(remade) && colon != -1)
        remadeAfter.insert(
            host::textOfName(entry.mid(colon + 1)), entry.mid(1, colon - 1).toLongLong());
}

bool OwnOutputs::contains(const QString& path) const
{
    if (!unnamed.contains(path) && !records.nameOutput(path))
        return false;
    constexpr qint64 slack = 2; // clocks of file systems are not those of programs
    struct stat status = {};
    const bool exists = stat(host::bytesOfName(path).constData(), &status) == 0;
    return !exists || status.st_ctim.tv_sec <= lastWritten + slack;
}

bool OwnOutputs::isOf(const RecordPlace& record, const QString& path) const
{
    return record.offset >= remadeAfter.value(path, 0);
}

void OwnOutputs::willCreate(const QStringList& paths)
{
    append(entriesOf(created, paths) + remadeEntriesOf(paths));
}

void OwnOutputs::willReplace(const QStringList& paths) { append(remadeEntriesOf(paths)); }

void OwnOutputs::haveNotCreated(const QStringList& paths) { append(entriesOf(notCreated, paths)); }

// Only of those that an earlier record names: there is no other that could be wrong by now.
QByteArray OwnOutputs::remadeEntriesOf(const QStringList& paths) const
{
    QByteArray entries;
    for (const QString& path : paths) {
        if (records.nameOutput(path))
            entries += remade + QByteArray::number(records.endOfLast()) + ':'
                + host::bytesOfName(path) + '\0';
    }
    return entries;
}

void OwnOutputs::append(const QByteArray& entries)
{
    if (entries.isEmpty())
        return;
    const QMutexLocker lock(&mutex);
    const bool isOpen = file.isOpen() || file.open(QIODevice::Append | QIODevice::Unbuffered);
    if (!isOpen || file.write(entries) != entries.size())
        throw host::HostError(host::ExitCode::WriteFailed, file.fileName(), file.errorString(),
            QStringLiteral("free some space on the disk"));
}

void OwnOutputs::finish(const QStringList& former, const QSet<QString>& named)
{
    QStringList left;
    for (const QString& output : QSet<QString>(former.begin(), former.end()) + unnamed) {
        if (!named.contains(output) && QFileInfo::exists(output))
            left.append(output);
    }
    file.close();
    if (left.isEmpty()) {
        file.remove();
        return;
    }
    host::OutputFile ofLeft(file.fileName());
    ofLeft.write(entriesOf(created, left));
    ofLeft.commit(true);
}

} // namespace vxroi
