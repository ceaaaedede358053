#pragma once

#include "OwnOutputs.h"
#include "vxroi/records/RecordIndex.h"

#include "host/crop/CropTask.h"

#include <optional>

namespace vxroi {

/// Which failures of an earlier run are retried.
enum class Retry {
    FromOutside, ///< those with a cause that may have gone, such as a full disk; see HostError::isRetryable()
    All,
    None,
};

/// The result of a task in an earlier run.
struct EarlierResult {
    std::optional<RecordPlace> place; ///< of the record; nullopt when there is no valid one
    std::optional<host::CropRecord> record; ///< nullopt: the task must be done again
    bool hasFailed = false; ///< whether the same task failed
    QStringList
        ownOutputs; ///< without a valid record: outputs of this batch, which may be replaced
};

/// Decides which tasks of a resumed run must be done again.
class Resumption {
public:
    Resumption(RecordIndex& earlier, const OwnOutputs& ownOutputs, Retry retryFailures,
        const host::CropRules& rules);

    /// The result of \a task in an earlier run. May be called from any thread.
    EarlierResult earlierResultOf(const host::CropTask& task) const;

private:
    bool isStillValid(const IndexedRecord& indexed, const host::CropTask& task) const;
    bool isOutputValid(const QJsonObject& output, const RecordPlace& record) const;

    const RecordIndex& records;
    const OwnOutputs& outputs;
    Retry retry;
    host::KnownBy knownBy;
    host::IfExists ifExists;
};

} // namespace vxroi
