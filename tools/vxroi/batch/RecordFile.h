#pragma once

#include "vxroi/records/RecordIndex.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <vector>

namespace vxroi {

/// The file of a batch's records, one a line, which an earlier run may have begun.
///
/// Until finish(), it has the records of earlier runs and then those of this one, so that nothing is lost whenever the
/// program ends.
class RecordFile {
public:
    /// Opens the file, for this process alone.
    /// \throws host::HostError when it cannot be opened, is in use, or holds something other than records.
    explicit RecordFile(const QString& path);

    /// What earlier runs have left.
    RecordIndex& earlier() { return earlierRecords; }

    /// Writes the record of the next input, a line with its end, by a single write.
    /// \throws host::HostError when that fails.
    void write(const QByteArray& record);

    /// Keeps a record of an earlier run as that of the next input.
    void keep(const RecordPlace& record);

    /// The outputs that earlier records name which are not kept.
    QStringList formerOutputs() const { return earlierRecords.outputsOutside(parts); }

    /// Leaves the records of all inputs in their order, and none beside them.
    /// \throws HostError when that fails.
    void finish();

private:
    void requireWritten(bool isWritten) const;
    bool isInOrder() const;

    QFile file;
    RecordIndex earlierRecords;
    std::vector<RecordPlace> parts; ///< the records of this run in their order; neighbours are one
};

} // namespace vxroi
