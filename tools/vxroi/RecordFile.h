#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace vxroi {

/// Where a batch writes its records, one a line, each with a single write: standard output, or a file
/// that an earlier run may have begun.
class RecordFile {
public:
    /// Opens the file for the records that follow those it has; a line without an end, which a killed
    /// run leaves, is cut off.
    /// \param path none: standard output.
    /// \throws HostError when the file cannot be opened, or is no list of records.
    explicit RecordFile(const QString& path);

    /// Takes the next record that an earlier run left, which must be that of \a path.
    /// \return whether there was one; \a hasFailed then tells what it says.
    /// \throws HostError when it is that of another input.
    bool takeKept(const QString& path, bool& hasFailed);

    /// \throws HostError when that fails.
    void write(const QByteArray& record);

private:
    QFile file;
    qint64 keptEnd = 0; ///< where the records of the earlier run end, in bytes
};

} // namespace vxroi
