#pragma once

#include "vxroi/records/RecordIndex.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <vector>

namespace vxroi {

/// The file of a batch's records, one per line, which may contain records of earlier runs.
///
/// Until finish(), new records are appended to those of earlier runs, so that nothing is lost if the program is killed.
class RecordFile {
public:
    /// Opens the file and locks it against other processes.
    /// \throws host::HostError when it cannot be opened, is in use, or holds something other than records.
    explicit RecordFile(const QString& path);

    /// The records of earlier runs.
    RecordIndex& earlier() { return earlierRecords; }

    /// Appends the record of the next input, a line with its newline, in a single write.
    /// \throws host::HostError when that fails.
    void write(const QByteArray& record);

    /// Keeps the record of an earlier run for the next input.
    void keep(const RecordPlace& record);

    /// The outputs named by earlier records that are not kept.
    QStringList formerOutputs() const { return earlierRecords.outputsOutside(parts); }

    /// Rewrites the file with the records of this run's inputs, in their order and without any others.
    /// \throws HostError when that fails.
    void finish();

private:
    void requireWritten(bool isWritten) const;
    bool isInOrder() const;

    QFile file;
    RecordIndex earlierRecords;
    std::vector<RecordPlace> parts; ///< this run's records in order; adjacent ones are merged
};

} // namespace vxroi
