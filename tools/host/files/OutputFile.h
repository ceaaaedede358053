#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace host {

/// Refuses an output that is there and is no regular file: a folder, a pipe, a device or a link to nothing.
/// \throws HostError
void requireReplaceable(const QString& output);

/// Whether \a path is a name that OutputFile gives to files on their way.
bool isDraft(const QString& path);

/// \throws HostError that says that \a output is there already.
[[noreturn]] void throwIsThere(const QString& output);

/// Makes sure that there is a folder at \a path.
/// \throws HostError when none can be made.
void createFolder(const QString& path);

/// A file on its way: it appears whole under its name when commit() is called, or not at all. Until then it has no
/// name, or one of its own beside it where the file system wants one.
class OutputFile {
public:
    /// \param path where it will be; "-" is standard output, which is written to at the commit.
    /// \throws HostError when it cannot be created there.
    explicit OutputFile(QString path);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile();

    const QString& path() const { return name; }

    /// The name that it may have beside its own until the commit has ended; empty for standard output.
    const QString& draftPath() const { return draft; }

    /// Adds \a bytes.
    /// \throws HostError when that fails.
    void write(const QByteArray& bytes);

    /// Makes sure that it is on the disk, and gives it its name.
    /// \param mayReplace whether a file that has the name by then is replaced; of several processes that may not,
    /// one succeeds.
    /// \throws HostError when that fails.
    void commit(bool mayReplace);

private:
    bool takeName(bool mayReplace);

    QString name;
    QString target; ///< what a link of that name leads to
    QString draft; ///< its name until the commit, if it has one
    bool isNamed = false;
    QFile file;
    QByteArray forStream; ///< what standard output gets
};

} // namespace host
