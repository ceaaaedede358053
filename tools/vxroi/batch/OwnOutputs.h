#pragma once

#include "vxroi/records/RecordIndex.h"

#include "host/crop/Cropper.h"

#include <QFile>
#include <QHash>
#include <QMutex>
#include <QSet>
#include <QString>

namespace vxroi {

/// Knows which output files are those of a batch that is resumed, so that only these are replaced.
///
/// Records name most of them. The others are in a file beside the records: what a run was about to make when it was killed, and
/// what was made of pictures that have other outputs or none by now. Until a run has finished, the file also says which outputs
/// of earlier records it has made anew, as these may be otherwise than the records say.
class OwnOutputs final : public host::OutputJournal {
public:
    /// \param recordPath the file of records; the file beside it is called the same with ".outputs" added.
    /// \param records what that file holds. It must live longer.
    /// \throws host::HostError when the file beside it is something else.
    OwnOutputs(const QString& recordPath, const RecordIndex& records);

    /// Whether the file at \a path was made by this batch before: it is named, and nobody has put another in its place since the
    /// batch wrote of it. May be called in any thread.
    bool contains(const QString& path) const;

    /// Whether no run that was stopped has made the file at \a path anew since \a record. May be called in any thread.
    bool isOf(const RecordPlace& record, const QString& path) const;

    /// \throws host::HostError when that cannot be written.
    void willCreate(const QStringList& paths) override;
    void willReplace(const QStringList& paths) override;
    void haveNotCreated(const QStringList& paths) override;

    /// Leaves in the file what no record names.
    /// \param former the outputs that records named which are not kept.
    /// \param named the outputs that the records name which are.
    /// \throws host::HostError when that cannot be written.
    void finish(const QStringList& former, const QSet<QString>& named);

private:
    void read(const QByteArray& entry);
    QByteArray remadeEntriesOf(const QStringList& paths) const;
    void append(const QByteArray& entries);

    QMutex mutex;
    QFile file;
    const RecordIndex& records;
    qint64 lastWritten; ///< when a run last wrote records or the file, in seconds since 1970
    QSet<QString> unnamed; ///< what the file had at the beginning
    QHash<QString, qint64>
        remadeAfter; ///< where the records ended before a run that made the file anew
};

} // namespace vxroi
