#pragma once

#include <QFile>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

#include <unordered_set>
#include <vector>

namespace vxroi {

/// Where a record stands in its file, in bytes; its line has an end.
struct RecordPlace {
    qint64 offset = 0;
    qint64 size = 0;
};

struct IndexedRecord {
    QJsonObject object;
    RecordPlace place;
    QByteArray line; ///< with its end
};

/// The records in a file, by their inputs.
class RecordIndex {
public:
    /// Reads the file. Half a record and zeros, which a crash leaves, are passed over.
    /// \param openFile open for reading; it must live longer.
    /// \throws host::HostError when it holds anything else, or cannot be read.
    explicit RecordIndex(QFile& openFile);

    /// Cuts off what is damaged at the end of the file, which is open for writing.
    /// \throws host::HostError when that fails.
    void cutDamagedEnd();

    /// Those of the input at \a path, the newest first. May be called in any thread.
    QVector<IndexedRecord> of(const QString& path) const;

    /// Notes that the input at \a path is still on the list.
    void see(const QString& path);

    /// Whether one of them names \a output as written. May be called in any thread.
    bool nameOutput(const QString& output) const { return outputHashes.count(hashOf(output)) > 0; }

    /// The outputs that those name which stand in none of \a parts.
    QStringList outputsOutside(std::vector<RecordPlace> parts) const;

    /// How many inputs that have records were not seen.
    qint64 unseenCount() const;

    /// All records, in the order of the file.
    QVector<RecordPlace> places() const;

    /// The line of a record, with its end. May be called in any thread.
    QByteArray lineAt(const RecordPlace& place) const;

    /// When the file was last written, in seconds since 1970.
    qint64 modified() const { return modifiedSeconds; }

    /// What it knows a path or an output by.
    static std::size_t hashOf(const QString& text);

    qint64 damagedBytes() const { return damaged; }

    /// Where the last record ends in the file, in bytes; those that are added stand after it.
    qint64 endOfLast() const { return end; }

private:
    struct Entry {
        std::size_t pathHash = 0;
        RecordPlace place;
        bool isSeen = false;
    };

    std::vector<Entry>::const_iterator firstOf(std::size_t pathHash) const;
    void add(const QByteArray& line, qint64 offset, qint64 lineNumber);

    QFile& file;
    qint64 end = 0; ///< of the last record
    std::vector<Entry> entries; ///< by hash, then by place
    std::unordered_set<std::size_t> outputHashes;
    qint64 damaged = 0;
    qint64 modifiedSeconds = 0;
};

/// Whether a line of a file is a record: an object with a path and a status.
bool isRecord(const QJsonObject& object);

/// The text that a record has under \a key; empty: none.
QString textIn(const QJsonObject& object, const char* key);

bool hasFailed(const QJsonObject& record);

/// What a record has under "output" of each crop.
QVector<QJsonObject> outputsOf(const QJsonObject& record);

/// The outputs that a record names as written.
QStringList writtenOutputsOf(const QJsonObject& record);

} // namespace vxroi
