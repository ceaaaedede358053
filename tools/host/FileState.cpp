#include "FileState.h"

#include "FileName.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QFile>

#include <sys/stat.h>

namespace host {

namespace {

QString textOf(const timespec& time)
{
    constexpr int nanosecondDigits = 9;
    constexpr int decimal = 10;
    return QDateTime::fromSecsSinceEpoch(time.tv_sec, Qt::UTC)
               .toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss"))
        + QStringLiteral(".%1Z").arg(time.tv_nsec, nanosecondDigits, decimal, QLatin1Char('0'));
}

} // namespace

std::optional<QJsonObject> stateOf(const QString& path, KnownBy knownBy)
{
    struct stat status = {};
    if (stat(bytesOfName(path).constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    QJsonObject state { { QStringLiteral("bytes"), static_cast<qint64>(status.st_size) } };
    if (knownBy == KnownBy::Time) {
        state.insert(QStringLiteral("modified"), textOf(status.st_mtim));
        return state;
    }
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file))
        return std::nullopt;
    state.insert(QStringLiteral("sha256"), QString::fromLatin1(hash.result().toHex()));
    return state;
}

} // namespace host
