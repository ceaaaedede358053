#include "OwnOutputs.h"

#include "host/FileName.h"
#include "host/HostError.h"
#include "host/OutputFile.h"

#include <QFileInfo>
#include <QMutexLocker>

namespace vxroi {

namespace {

// Entries are a mark and a name, and end in NUL, which is in no name.
constexpr char created = '+';
constexpr char notCreated = '-';

QByteArray entriesOf(char mark, const QStringList& paths)
{
    QByteArray entries;
    for (const QString& path : paths)
        entries += mark + host::bytesOfName(path) + '\0';
    return entries;
}

} // namespace

OwnOutputs::OwnOutputs(const QString& recordPath, const RecordIndex& earlierRecords)
    : file(recordPath + QStringLiteral(".outputs"))
    , records(earlierRecords)
{
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QList<QByteArray> entries = file.readAll().split('\0');
    for (const QByteArray& entry : entries) {
        if (entry.startsWith(created))
            unnamed.insert(host::textOfName(entry.mid(1)));
        else if (entry.startsWith(notCreated))
            unnamed.remove(host::textOfName(entry.mid(1)));
    }
    file.close();
    for (const QString& path : unnamed) {
        if (host::isDraft(path))
            QFile::remove(path);
    }
}

bool OwnOutputs::contains(const QString& path) const
{
    return unnamed.contains(path) || records.nameOutput(path);
}

void OwnOutputs::willCreate(const QStringList& paths) { append(created, paths); }

void OwnOutputs::haveNotCreated(const QStringList& paths) { append(notCreated, paths); }

void OwnOutputs::append(char mark, const QStringList& paths)
{
    const QByteArray entries = entriesOf(mark, paths);
    const QMutexLocker lock(&mutex);
    const bool isOpen = file.isOpen() || file.open(QIODevice::Append | QIODevice::Unbuffered);
    if (!isOpen || file.write(entries) != entries.size())
        throw host::HostError(host::ExitCode::WriteFailed, file.fileName(), file.errorString(),
            QStringLiteral("make room on the disk"));
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
