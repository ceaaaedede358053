#pragma once

#include "OwnOutputs.h"
#include "vxroi/records/RecordIndex.h"

#include "host/crop/Cropper.h"

#include <optional>

namespace vxroi {

/// Which failures of an earlier run are tried again.
enum class Retry {
    FromOutside, ///< those whose cause may have gone, such as a full disk
    All,
    None,
};

/// What an earlier run has to say of a task.
struct Earlier {
    std::optional<RecordPlace> place; ///< of a record that stands, and need not be made again
    std::optional<host::CropRecord> record; ///< that record
    bool hasFailed = false; ///< the same task has failed
    QStringList
        ownOutputs; ///< where none stands: its outputs that may be replaced, for this batch has made them
};

/// Decides what is left to do of a run that goes on with another one's records.
class Resumption {
public:
    Resumption(RecordIndex& earlier, const OwnOutputs& ownOutputs, Retry retryFailures,
        const host::CropRules& rules);

    /// May be called in any thread.
    Earlier judge(const host::CropTask& task) const;

private:
    bool stands(const IndexedRecord& indexed, const host::CropTask& task) const;
    bool isOutputLeft(const QJsonObject& output, const RecordPlace& record) const;

    const RecordIndex& records;
    const OwnOutputs& outputs;
    Retry retry;
    host::KnownBy knownBy;
    host::IfExists ifExists;
};

} // namespace vxroi
