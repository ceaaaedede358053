#include "RecordIndex.h"

#include "RecordFields.h"
#include "host/FileName.h"
#include "host/HostError.h"
#include "host/records/Json.h"

#include <algorithm>
#include <functional>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

constexpr QLatin1String pathKey("path", 4);

bool isBefore(const RecordPlace& one, const RecordPlace& other)
{
    return one.offset < other.offset;
}

// Whether \a line may be a record damaged by a crash: its beginning, and zeros where the rest did not reach the disk.
bool isDamagedRecord(const QByteArray& line)
{
    const int zeros = line.indexOf('\0');
    const bool isCutShort = zeros != -1 || !line.endsWith('\n');
    const QByteArray begin = zeros == -1 ? line : line.left(zeros);
    const auto fits = [&begin](const QByteArray& recordStart) {
        return begin.startsWith(recordStart) || recordStart.startsWith(begin);
    };
    return isCutShort && (fits(R"({"crops":[)") || fits(R"({"error":{"code":)"));
}

} // namespace

std::size_t RecordIndex::hashOf(const QString& text)
{
    return std::hash<std::string>()(host::bytesOfName(text).toStdString());
}

RecordIndex::RecordIndex(QFile& openFile)
    : file(openFile)
{
    constexpr qint64 mostBytes = 1
        << 24; // of a line: after a crash, zeros may go on without a newline
    struct stat status = {};
    if (fstat(file.handle(), &status) == 0)
        modifiedSeconds = status.st_mtim.tv_sec;
    file.seek(0);
    for (qint64 lineNumber = 1; !file.atEnd(); ++lineNumber) {
        const qint64 offset = file.pos();
        add(file.readLine(mostBytes), offset, lineNumber);
    }
    if (file.error() != QFileDevice::NoError)
        throw HostError(ExitCode::UnreadableInput, file.fileName(), file.errorString(),
            QStringLiteral("name a file of records"));
    std::sort(entries.begin(), entries.end(), [](const Entry& one, const Entry& other) {
        return one.pathHash != other.pathHash ? one.pathHash < other.pathHash
                                              : isBefore(one.place, other.place);
    });
}

void RecordIndex::add(const QByteArray& line, qint64 offset, qint64 lineNumber)
{
    const QJsonObject object = host::parseObject(line).object;
    if (line.endsWith('\n') && isRecord(object)) {
        entries.push_back(
            { hashOf(object.value(pathKey).toString()), { offset, line.size() }, false });
        for (const QString& output : writtenOutputsOf(object))
            outputHashes.insert(hashOf(output));
        end = offset + line.size();
    } else if (isDamagedRecord(line)) {
        damaged += line.size();
    } else {
        throw HostError(ExitCode::Usage,
            QStringLiteral("%1, line %2").arg(file.fileName()).arg(lineNumber),
            QStringLiteral("is not a record"),
            QStringLiteral("name a file of records, or one that does not exist yet"));
    }
}

void RecordIndex::cutDamagedEnd()
{
    if (file.size() > end && !file.resize(end))
        throw HostError(ExitCode::WriteFailed, file.fileName(), file.errorString(),
            QStringLiteral("check its permissions"));
}

QVector<RecordPlace> RecordIndex::places() const
{
    QVector<RecordPlace> places;
    for (const Entry& entry : entries)
        places.append(entry.place);
    std::sort(places.begin(), places.end(), isBefore);
    return places;
}

std::vector<RecordIndex::Entry>::const_iterator RecordIndex::firstOf(std::size_t pathHash) const
{
    return std::lower_bound(entries.begin(), entries.end(), pathHash,
        [](const Entry& entry, std::size_t value) { return entry.pathHash < value; });
}

QVector<IndexedRecord> RecordIndex::recordsOf(const QString& path) const
{
    QVector<IndexedRecord> records;
    const std::size_t hash = hashOf(path);
    for (auto entry = firstOf(hash); entry != entries.end() && entry->pathHash == hash; ++entry) {
        const QByteArray line = lineAt(entry->place);
        const QJsonObject object = host::parseObject(line).object;
        if (object.value(pathKey).toString() == path)
            records.prepend({ object, entry->place, line });
    }
    return records;
}

// Reads by pread(), because threads would share the position in the file.
QByteArray RecordIndex::lineAt(const RecordPlace& place) const
{
    QByteArray line(static_cast<int>(place.size), '\0');
    const ssize_t count
        = pread(file.handle(), line.data(), static_cast<std::size_t>(line.size()), place.offset);
    return count == line.size() ? line : QByteArray();
}

void RecordIndex::markSeen(const QString& path)
{
    const std::size_t hash = hashOf(path);
    const auto index = static_cast<std::size_t>(firstOf(hash) - entries.begin());
    if (index < entries.size() && entries[index].pathHash == hash)
        entries[index].isSeen = true; // only the first entry of a path is marked
}

QStringList RecordIndex::outputsOutside(std::vector<RecordPlace> parts) const
{
    std::sort(parts.begin(), parts.end(), isBefore);
    QStringList outputs;
    for (const Entry& entry : entries) {
        const auto after = std::upper_bound(parts.begin(), parts.end(), entry.place, isBefore);
        const bool isInside = after != parts.begin()
            && entry.place.offset < std::prev(after)->offset + std::prev(after)->size;
        if (!isInside)
            outputs += writtenOutputsOf(host::parseObject(lineAt(entry.place)).object);
    }
    return outputs;
}

qint64 RecordIndex::unseenCount() const
{
    qint64 count = 0;
    for (auto entry = entries.begin(); entry != entries.end();) {
        count += entry->isSeen ? 0 : 1;
        const std::size_t hash = entry->pathHash;
        entry = std::find_if(
            entry, entries.end(), [hash](const Entry& other) { return other.pathHash != hash; });
    }
    return count;
}

} // namespace vxroi
