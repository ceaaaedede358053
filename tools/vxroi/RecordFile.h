#pragma once

#include "RecordIndex.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <optional>
#include <vector>

namespace vxroi {

/// Where a batch writes its records, one a line, each with a single write: standard output, or a file
/// that an earlier run may have begun.
///
/// Until finish(), the file has the records of earlier runs and then those of this one, so that nothing is lost whenever the
/// program ends.
class RecordFile {
public:
    /// Opens the file, for this process alone.
    /// \param path none: standard output.
    /// \throws HostError when the file cannot be opened, is in use, or is no list of records.
    explicit RecordFile(const QString& path);

    /// What earlier runs have left; nullptr on standard output.
    RecordIndex* earlier() { return earlierRecords ? &*earlierRecords : nullptr; }

    /// Writes the record of the next input.
    /// \throws HostError when that fails.
    void write(const QByteArray& record);

    /// Keeps a record of an earlier run as that of the next input.
    void keep(const RecordPlace& record);

    /// The outputs that earlier records name which are not kept.
    QStringList formerOutputs() const { return earlierRecords->outputsOutside(parts); }

    /// Leaves the records of all inputs in their order, and none beside them.
    /// \throws HostError when that fails.
    void finish();

private:
    void requireWritten(bool isWritten) const;
    bool isInOrder() const;

    QFile file;
    std::optional<RecordIndex> earlierRecords;
    std::vector<RecordPlace> parts; ///< the records of this run in their order; neighbours are one
};

} // namespace vxroi
