#pragma once

#include "RecordIndex.h"
#include "vxroi/inputs/Tasks.h"

#include <QByteArray>
#include <QFile>
#include <QJsonObject>
#include <QString>
#include <QVector>

#include <deque>
#include <optional>

namespace vxroi {

/// The record that is taken for an input.
struct FoundRecord {
    QByteArray line; ///< with its newline
    QJsonObject record;
    QString part; ///< the file that contains it
    bool isDuplicate = false; ///< whether the input has other records, too
};

/// The files of records that are merged.
class MergeParts {
public:
    /// Opens and indexes the file at \a path.
    /// \return the number of bytes that were skipped as damaged.
    /// \throws host::HostError when the file cannot be read, or contains something else.
    qint64 add(const QString& path);

    /// The record of an input. Of several records, a successful one is preferred to a failed one, and a later part to
    /// an earlier one.
    std::optional<FoundRecord> find(const Input& input) const;

    /// The inputs of all records, each once, in the order of picturesIn().
    QVector<Input> inputs() const;

    /// Whether any record names \a path as a written output.
    bool containsOutput(const QString& path) const;

private:
    struct Part {
        QFile file;
        std::optional<RecordIndex> records;
    };

    std::deque<Part> parts;
};

} // namespace vxroi
