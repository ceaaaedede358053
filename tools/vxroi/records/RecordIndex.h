#pragma once

#include <QFile>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

#include <unordered_set>
#include <vector>

namespace vxroi {

/// The place of a record in its file, in bytes. The size includes the newline.
struct RecordPlace {
    qint64 offset = 0;
    qint64 size = 0;
};

struct IndexedRecord {
    QJsonObject object;
    RecordPlace place;
    QByteArray line; ///< with its newline
};

/// An index of the records in a file, by the paths of their inputs.
class RecordIndex {
public:
    /// Reads the file. Incomplete records and zeros, which a crash leaves, are skipped.
    /// \param openFile open for reading; must outlive this object.
    /// \throws host::HostError when the file contains anything else, or cannot be read.
    explicit RecordIndex(QFile& openFile);

    /// Truncates the file, which must be open for writing, after the last intact record.
    /// \throws host::HostError when that fails.
    void cutDamagedEnd();

    /// The records of the input at \a path, the newest first. May be called from any thread.
    QVector<IndexedRecord> recordsOf(const QString& path) const;

    /// Marks the input at \a path as still in the list.
    void markSeen(const QString& path);

    /// Whether a record names \a output as written. May be called from any thread.
    bool containsOutput(const QString& output) const
    {
        return outputHashes.count(hashOf(output)) > 0;
    }

    /// The outputs named by records that lie in none of \a parts.
    QStringList outputsOutside(std::vector<RecordPlace> parts) const;

    /// The number of inputs with records that were not marked by markSeen().
    qint64 unseenCount() const;

    /// The places of all records, in the order of the file.
    QVector<RecordPlace> places() const;

    /// The line of a record, with its newline. May be called from any thread.
    QByteArray lineAt(const RecordPlace& place) const;

    /// The modification time of the file when it was read, in seconds since 1970.
    qint64 modified() const { return modifiedSeconds; }

    /// The hash that the index stores for a path or an output.
    static std::size_t hashOf(const QString& text);

    /// The number of bytes that were skipped as damaged.
    qint64 damagedBytes() const { return damaged; }

    /// The offset in bytes at which the last record ends; records that are appended later begin at or after it.
    qint64 endOfRecords() const { return end; }

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
    std::vector<Entry> entries; ///< sorted by hash, then by place
    std::unordered_set<std::size_t> outputHashes;
    qint64 damaged = 0;
    qint64 modifiedSeconds = 0;
};

} // namespace vxroi
