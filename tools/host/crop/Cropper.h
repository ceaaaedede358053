#pragma once

#include "Analysis.h"
#include "Constraints.h"
#include "CropShape.h"
#include "host/files/FileState.h"
#include "host/picture/PictureWriter.h"
#include "host/records/CropRecord.h"

#include <QSemaphore>
#include <QStringList>

#include <deque>
#include <functional>
#include <memory>

namespace host {

/// What to do when an output file already exists.
enum class IfExists {
    Fail,
    Skip,
    Overwrite,
};

/// What becomes of a crop that has fewer pixels than the size that is asked for.
enum class Fit {
    Smaller, ///< it is written with the pixels that it has, and a warning says so
    Enlarged,
    Padded, ///< there is background around it
};

/// Hears of output files before they get their names, so that a later run knows them as this program's even when this one
/// ends there. Its functions are called by any thread.
class OutputJournal {
public:
    OutputJournal() = default;
    OutputJournal(const OutputJournal&) = delete;
    OutputJournal& operator=(const OutputJournal&) = delete;
    virtual ~OutputJournal() = default;

    /// There are no files at \a paths, and there are about to be some, of which drafts last a moment only.
    virtual void willCreate(const QStringList& paths) = 0;

    /// The files at \a paths are about to be replaced.
    virtual void willReplace(const QStringList& paths) = 0;

    /// Those at \a paths could not be made after all.
    virtual void haveNotCreated(const QStringList& paths) = 0;
};

/// What holds for every picture of a run.
struct CropRules {
    AnalysisRules analysis;
    IfExists ifExists = IfExists::Fail;
    bool isResumed
        = false; ///< a file that is what would be written is from an earlier run: it counts
    KnownBy knownBy = KnownBy::Time; ///< how records tell files
    OutputJournal* journal = nullptr; ///< none: nobody wants to know
    Fit fit = Fit::Smaller;
    WritingRules writing = {};
    bool isDryRun = false; ///< write no file
    bool makesFolders = false; ///< make the folders that outputs go to
};

/// One picture and the crops that are asked of it.
struct CropTask {
    QString path;
    QVector<CropShape> shapes;
    QStringList outputs; ///< one for each shape, or none at all
    Constraints constraints;
    QString map = {}; ///< a file to take the salience map from; empty: it is computed
    CropRequest request = {};
    QStringList ownOutputs = {}; ///< those that an earlier run has written, which may be replaced
    std::optional<HostError> failure = std::nullopt; ///< why there is nothing to crop
};

/// Crops pictures. One object serves any number of threads.
class Cropper {
public:
    /// \param pixelsAtOnce how many pixels all threads together may have decoded at a time; a picture
    /// with more waits until it is alone.
    Cropper(CropRules rules, qint64 pixelsAtOnce);

    /// Looks at a picture and its analysis; a HostError that it throws is the picture's failure.
    using Look = std::function<void(PictureFile& picture, const VXCrop& analysis)>;

    /// Chooses the crops of a picture and writes those that have outputs: all of them or none.
    /// \param look is called once the crops are chosen, if there is one.
    /// \return the record; a failure is in it, and never thrown.
    CropRecord crop(const CropTask& task, const Look& look = {});

private:
    void plan(CropRecord& record, const CropTask& task) const;
    void fill(CropRecord& record, const CropTask& task, const Look& look);
    void choose(CropRecord& record, const CropTask& task, const VXCrop& analysis,
        const PictureFile& picture) const;
    void write(CropRecord& record, const CropTask& task, PictureFile& picture) const;
    void commit(std::deque<PictureWriter>& files, const CropTask& task) const;
    void setOutputSize(
        CropRecord& record, CropResult& crop, const CropShape& shape, int frameCount) const;
    bool mayReplace(const QString& output, const CropTask& task) const;
    OutputState planFor(const QString& output, const CropTask& task) const;
    OutputState planForOtherContent(const QString& output, const CropTask& task) const;

    CropRules rules;
    int budget; ///< in thousands of pixels
    QSemaphore unusedBudget;
};

} // namespace host
