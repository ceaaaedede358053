#pragma once

#include "BatchCommand.h"
#include "OwnOutputs.h"
#include "Progress.h"
#include "RecordFile.h"
#include "Resumption.h"
#include "TimingsFile.h"
#include "host/crop/Cropper.h"
#include "vxroi/concurrency/OrderedWork.h"
#include "vxroi/concurrency/Wakeup.h"
#include "vxroi/inputs/Inputs.h"
#include "vxroi/inputs/Tasks.h"

#include <deque>
#include <memory>
#include <optional>
#include <string>

namespace vxroi {

/// One run of `vxroi batch` over all its inputs. Pictures are cropped by the workers; all else is done by the thread
/// that calls run(), in the order of the inputs.
class Batch {
public:
    /// \throws host::HostError when the command line is wrong, or a file cannot be opened.
    explicit Batch(const BatchArguments& arguments);

    /// \throws host::HostError when the list cannot be read, the records cannot be written, or a signal asks for the
    /// end.
    host::ExitCode run();

private:
    // The result for one input.
    struct Answer {
        QString path;
        std::string problem = {}; ///< a line for stderr; empty: none
        Outcome outcome = Outcome::Done;
        QByteArray record = {}; ///< a line; empty: the record of an earlier run is kept
        RecordPlace kept = {}; ///< the place of that record
        QByteArray printed = {}; ///< lines for standard output
        QStringList outputs = {}; ///< the outputs that its record names
        double seconds = 0;
    };

    bool isResumed() const { return records.has_value(); }
    void step();
    void begin(const Input& input);
    Answer answer(const PlannedTask& planned);
    void finishOne();
    void write(const Answer& answer);
    void finishRecords();
    void reportDamage();
    void printSummary();

    const Wakeup wakeup;
    const std::unique_ptr<Inputs> inputs;
    const TaskPlan plan;
    OutputClaims claims;
    std::optional<RecordFile> records; ///< nullopt: records go to standard output
    const std::unique_ptr<OwnOutputs> ownOutputs; ///< null without a file of records
    const host::CropRules rules;
    host::Cropper cropper;
    std::optional<Resumption> resumption;
    std::optional<TimingsFile> timings;
    const RecordPrinter printer;
    Progress progress;
    const bool isStream; ///< the list may be endless: outputs of finished inputs are not remembered
    bool wasCutShort = false; ///< an input was skipped, so no later record may be written
    QSet<QString> namedOutputs; ///< the outputs that the records in the file name
    std::deque<QStringList> filesInProgress; ///< the outputs of each input that is in progress
    OrderedWork<std::optional<Answer>> work;
};

} // namespace vxroi
