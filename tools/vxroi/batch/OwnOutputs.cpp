#include "OwnOutputs.h"

#include "host/FileName.h"
#include "host/HostError.h"
#include "host/files/OutputFile.h"

#include <QDateTime>
#include <QFileInfo>
#include <QMutexLocker>

#include <algorithm>
#include <array>
#include <sys/stat.h>

namespace vxroi {

namespace {

// An entry is a mark and a path, and ends in NUL, which no path contains.
constexpr char createdMark = '+';
constexpr char notCreatedMark = '-';
// Has the size of the records before the path, as in "~1234:out/a.png".
constexpr char replacedMark = '~';

QByteArray entriesOf(char mark, const QStringList& paths)
{
    QByteArray entries;
    for (const QString& path : paths)
        entries += mark + host::bytesOfName(path) + '\0';
    return entries;
}

// Refuses a file that is not a journal, because the end of the run deletes or rewrites it.
void requireEntries(const QList<QByteArray>& entries, const QString& path)
{
    constexpr std::array<char, 3> marks { createdMark, notCreatedMark, replacedMark };
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
    if (entry.startsWith(createdMark))
        unnamed.insert(host::textOfName(entry.mid(1)));
    else if (entry.startsWith(notCreatedMark))
        unnamed.remove(host::textOfName(entry.mid(1)));
    else if (entry.startsWith(replacedMark) && colon != -1)
        replacedSince.insert(
            host::textOfName(entry.mid(colon + 1)), entry.mid(1, colon - 1).toLongLong());
}

bool OwnOutputs::contains(const QString& path) const
{
    if (!unnamed.contains(path) && !records.containsOutput(path))
        return false;
    constexpr qint64 slack = 2; // the clock of a file system may differ from the program's
    struct stat status = {};
    const bool exists = stat(host::bytesOfName(path).constData(), &status) == 0;
    return !exists || status.st_ctim.tv_sec <= lastWritten + slack;
}

bool OwnOutputs::isOf(const RecordPlace& record, const QString& path) const
{
    return record.offset >= replacedSince.value(path, 0);
}

void OwnOutputs::willWrite(const QStringList& created, const QStringList& replaced)
{
    append(entriesOf(createdMark, created) + replacedEntriesOf(created + replaced));
}

void OwnOutputs::haveNotCreated(const QStringList& paths)
{
    append(entriesOf(notCreatedMark, paths));
}

// Only outputs that an earlier record names: only such a record can become outdated.
QByteArray OwnOutputs::replacedEntriesOf(const QStringList& paths) const
{
    QByteArray entries;
    for (const QString& path : paths) {
        if (records.containsOutput(path))
            entries += replacedMark + QByteArray::number(records.endOfRecords()) + ':'
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
    host::OutputFile journal(file.fileName());
    journal.write(entriesOf(createdMark, left));
    journal.commit(true);
}

} // namespace vxroi
