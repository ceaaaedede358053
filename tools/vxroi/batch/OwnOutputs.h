#pragma once

#include "vxroi/records/RecordIndex.h"

#include "host/crop/CropTask.h"

#include <QFile>
#include <QHash>
#include <QMutex>
#include <QSet>
#include <QString>

namespace vxroi {

/// The outputs of a resumed batch, so that only its own files are replaced.
///
/// Records name most of them. The others are in a journal, a file beside the records: outputs that a run was about to
/// create when it was killed, and outputs of pictures whose records no longer name them. Until a run has finished, the
/// journal also lists the outputs of earlier records that it has replaced, because those records are then outdated.
class OwnOutputs final : public host::OutputJournal {
public:
    /// \param recordPath the file of records; the journal has the same name with ".outputs" added.
    /// \param records the records in that file; must outlive this object.
    /// \throws host::HostError when the journal is some other file.
    OwnOutputs(const QString& recordPath, const RecordIndex& records);

    /// Whether the file at \a path was created by this batch: a record or the journal names it, and it has not been
    /// replaced since they were last written. May be called from any thread.
    bool contains(const QString& path) const;

    /// Whether \a record still describes the file at \a path: no interrupted run has replaced it since. May be called
    /// from any thread.
    bool isOf(const RecordPlace& record, const QString& path) const;

    /// \throws host::HostError when the journal cannot be written.
    void willWrite(const QStringList& created, const QStringList& replaced) override;
    void haveNotCreated(const QStringList& paths) override;

    /// Reduces the journal to existing outputs that no record names; deletes it when there are none.
    /// \param former the outputs that dropped records named.
    /// \param named the outputs that the current records name.
    /// \throws host::HostError when the journal cannot be written.
    void finish(const QStringList& former, const QSet<QString>& named);

private:
    void read(const QByteArray& entry);
    QByteArray replacedEntriesOf(const QStringList& paths) const;
    void append(const QByteArray& entries);

    QMutex mutex;
    QFile file;
    const RecordIndex& records;
    qint64
        lastWritten; ///< when the records or the journal were last written, in seconds since 1970
    QSet<QString> unnamed; ///< the created outputs that the journal listed at the start
    QHash<QString, qint64> replacedSince; ///< outputs, and the size of the records at the start
        ///< of the run that replaced them
};

} // namespace vxroi
