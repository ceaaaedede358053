#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QString>

namespace vxroi {

/// Writes how long each picture of a run took, as lines of JSON: {"path", "seconds", "at"}, where "at" is when the
/// picture was finished, in seconds since the start of the run. Records do not contain timings, so that they are
/// reproducible.
class TimingsFile {
public:
    /// Creates the file, or truncates it.
    /// \throws host::HostError when it cannot be created, or when it exists and holds something other than timings.
    explicit TimingsFile(const QString& path);

    /// Appends the timing of one picture.
    /// \throws host::HostError when that fails.
    void write(const QString& path, double seconds);

private:
    QFile file;
    QElapsedTimer sinceStart;
};

} // namespace vxroi
