#include "TimingsFile.h"

#include "host/HostError.h"
#include "host/records/Json.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace vxroi {

using host::ExitCode;
using host::HostError;

namespace {

// Whether the file at \a path is missing, empty, a file of timings, or not a regular file, such as a pipe.
bool mayOverwrite(const QString& path)
{
    constexpr qint64 mostBytes = 1 << 16; // of the first line
    QFile earlier(path);
    if (!QFileInfo(path).isFile() || !earlier.open(QIODevice::ReadOnly) || earlier.size() == 0)
        return true;
    const QJsonObject timing = host::parseObject(earlier.readLine(mostBytes)).object;
    return timing.contains(QLatin1String("seconds")) && timing.contains(QLatin1String("at"));
}

double toMicroseconds(double seconds) { return std::round(seconds * 1e6) / 1e6; }

} // namespace

TimingsFile::TimingsFile(const QString& path)
    : file(path)
{
    if (!mayOverwrite(path))
        throw HostError(ExitCode::CannotCreate, path, QStringLiteral("is not a file of timings"),
            QStringLiteral("name one, or a file that does not exist yet"));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw HostError(ExitCode::CannotCreate, path, file.errorString(),
            QStringLiteral("choose a folder that exists and can be written to"));
    sinceStart.start();
}

void TimingsFile::write(const QString& path, double seconds)
{
    const QJsonObject timing { { QStringLiteral("path"), path },
        { QStringLiteral("seconds"), toMicroseconds(seconds) },
        { QStringLiteral("at"),
            toMicroseconds(static_cast<double>(sinceStart.nsecsElapsed()) / 1e9) } };
    const QByteArray line = QJsonDocument(timing).toJson(QJsonDocument::Compact) + '\n';
    if (file.write(line) != line.size() || !file.flush())
        throw HostError(ExitCode::WriteFailed, file.fileName(), file.errorString(),
            QStringLiteral("free some space on the disk"));
}

} // namespace vxroi
