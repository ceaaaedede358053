#include "TimingsFile.h"

#include "host/HostError.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace vxroi {

using host::ExitCode;
using host::HostError;

namespace {

double toMicroseconds(double seconds) { return std::round(seconds * 1e6) / 1e6; }

} // namespace

TimingsFile::TimingsFile(const QString& path)
    : file(path)
{
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
            QStringLiteral("make room on the disk"));
}

} // namespace vxroi
