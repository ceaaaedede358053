#include "RecordFile.h"

#include "host/HostError.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

namespace vxroi {

using host::ExitCode;
using host::HostError;

namespace {

constexpr QLatin1String pathKey("path", 4);
constexpr QLatin1String statusKey("status", 6);

bool isRecord(const QByteArray& line)
{
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    return object.contains(pathKey) && object.contains(statusKey);
}

// Whether \a line may be what was written of a record before the program was killed.
bool mayBeginRecord(const QByteArray& line)
{
    const auto fits = [&line](const QByteArray& begin) {
        return line.startsWith(begin) || begin.startsWith(line);
    };
    return fits(R"({"crops":[{"centreSalience":)") || fits(R"({"error":{"code":)");
}

} // namespace

RecordFile::RecordFile(const QString& path)
    : file(path)
{
    if (path.isEmpty()) {
        file.open(stdout, QIODevice::WriteOnly | QIODevice::Unbuffered);
        return;
    }
    if (!file.open(QIODevice::ReadWrite))
        throw HostError(ExitCode::CannotCreate, path, file.errorString(),
            QStringLiteral("choose a folder that exists and can be written to"));
    while (!file.atEnd()) {
        const QByteArray line = file.readLine();
        const bool isWhole = line.endsWith('\n');
        if (isWhole ? !isRecord(line) : !mayBeginRecord(line))
            throw HostError(ExitCode::Usage, path,
                QStringLiteral("holds something else than records"),
                QStringLiteral("name a file of records, or one that is not there yet"));
        if (isWhole)
            keptEnd = file.pos();
    }
    if (!file.resize(keptEnd) || !file.seek(0))
        throw HostError(ExitCode::WriteFailed, path, file.errorString(),
            QStringLiteral("check its permissions"));
}

bool RecordFile::takeKept(const QString& path, bool& hasFailed)
{
    if (file.pos() >= keptEnd)
        return false;
    const QJsonObject record = QJsonDocument::fromJson(file.readLine()).object();
    if (record.value(pathKey).toString() != path)
        throw HostError(ExitCode::Usage, file.fileName(),
            QStringLiteral("holds records of other pictures, before that of %1").arg(path),
            QStringLiteral("resume with the list it was begun with, or name a new file"));
    hasFailed = record.value(statusKey).toString() != QLatin1String("ok");
    return true;
}

void RecordFile::write(const QByteArray& record)
{
    const QByteArray line = record + '\n';
    if (file.write(line) != line.size() || !file.flush())
        throw HostError(ExitCode::WriteFailed,
            file.fileName().isEmpty() ? QStringLiteral("standard output") : file.fileName(),
            QStringLiteral("cannot be written"),
            QStringLiteral("make room, and go on with --resume"));
}

} // namespace vxroi
