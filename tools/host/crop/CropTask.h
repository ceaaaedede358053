#pragma once

#include "Analysis.h"
#include "Constraints.h"
#include "CropShape.h"
#include "host/detector/FaceDetector.h"
#include "host/files/FileState.h"
#include "host/picture/WritingRules.h"
#include "host/records/CropRecord.h"

#include <QStringList>

namespace host {

/// What to do when an output file already exists.
enum class IfExists {
    Fail,
    Skip,
    Overwrite,
};

/// What to do with a crop that has fewer pixels than the requested size.
enum class Fit {
    Smaller, ///< write it as it is, with a warning
    Enlarged, ///< scale it up
    Padded, ///< put background around it
};

/// Is told about output files before they appear under their names, so that a later run can recognise them as this
/// program's even if this run is killed. Its functions are called from any thread.
class OutputJournal {
public:
    OutputJournal() = default;
    OutputJournal(const OutputJournal&) = delete;
    OutputJournal& operator=(const OutputJournal&) = delete;
    virtual ~OutputJournal() = default;

    /// Files are about to be created, including short-lived drafts, or replaced.
    virtual void willWrite(const QStringList& created, const QStringList& replaced) = 0;

    /// The files at \a paths were announced as created but could not be.
    virtual void haveNotCreated(const QStringList& paths) = 0;
};

/// What applies to every picture of a run.
struct CropRules {
    AnalysisRules analysis;
    IfExists ifExists = IfExists::Fail;
    bool isResumed = false; ///< an existing output with the content to be written counts as written
    KnownBy knownBy = KnownBy::Time; ///< how records identify files
    std::shared_ptr<FaceDetector> detector = {}; ///< null: faces are not looked for
    OutputJournal* journal = nullptr; ///< null: outputs are not recorded
    Fit fit = Fit::Smaller;
    WritingRules writing = {};
    bool isDryRun = false; ///< write no files
    bool makesFolders = false; ///< create the folders of outputs
};

/// One picture and its requested crops.
struct CropTask {
    QString path;
    QVector<CropShape> shapes;
    QStringList outputs; ///< one for each shape, or empty: nothing is written
    Constraints constraints;
    QString map = {}; ///< a file to read the salience map from; empty: the map is computed
    std::optional<Detection> detection
        = std::nullopt; ///< nullopt: the detector of the run is asked
    CropRequest request = {};
    QStringList ownOutputs = {}; ///< outputs of an earlier run, which may be replaced
    std::optional<HostError> failure = std::nullopt; ///< why the picture cannot be cropped
};

} // namespace host
