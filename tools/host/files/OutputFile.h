#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace host {

/// Refuses an output that exists and is not a regular file: a folder, a pipe, a device or a dangling link.
/// \throws HostError
void requireReplaceable(const QString& output);

/// Whether \a path is the name of a draft: a file that OutputFile has not committed yet.
bool isDraft(const QString& path);

/// \throws HostError always: \a output already exists.
[[noreturn]] void throwAlreadyExists(const QString& output);

/// Creates the folder at \a path, and those above it, unless they exist.
/// \throws HostError when that fails.
void createFolder(const QString& path);

/// An output file that appears complete under its name when commit() is called, or not at all. Until then it has no
/// name, or the name of a draft in the same folder where the file system needs one.
class OutputFile {
public:
    /// \param path the name of the file; "-" is standard output, which is written at the commit.
    /// \throws HostError when the file cannot be created.
    explicit OutputFile(QString path);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile();

    const QString& path() const { return name; }

    /// The name that the draft may have until the commit has ended; empty for standard output.
    const QString& draftPath() const { return draft; }

    /// Appends \a bytes.
    /// \throws HostError when that fails.
    void write(const QByteArray& bytes);

    /// Syncs the file to the disk and gives it its name.
    /// \param mayReplace whether to replace an existing file; of several processes that may not, exactly one succeeds.
    /// \throws HostError when that fails.
    void commit(bool mayReplace);

private:
    bool moveIntoPlace(bool mayReplace);

    QString name;
    QString target; ///< the name, with links resolved
    QString draft;
    bool isNamed = false; ///< whether the draft has its name on the disk
    QFile file;
    QByteArray streamContent; ///< to be written to standard output
};

} // namespace host
