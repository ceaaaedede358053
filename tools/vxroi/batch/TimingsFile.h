#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QString>

namespace vxroi {

/// Writes how long each picture of a run took, a line of JSON each: {"path", "seconds", "at"}, where "at" is when it was done,
/// in seconds since the run began. Records do not say it, so that they are the same for every run.
class TimingsFile {
public:
    /// Begins an empty file.
    /// \throws host::HostError when it cannot be created, or when it exists and holds something other than timings.
    explicit TimingsFile(const QString& path);

    /// \throws host::HostError when that fails.
    void write(const QString& path, double seconds);

private:
    QFile file;
    QElapsedTimer sinceStart;
};

} // namespace vxroi
