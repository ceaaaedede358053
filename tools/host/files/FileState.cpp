#include "FileState.h"

#include "host/FileName.h"

#include <QCryptographicHash>
#include <QFile>

#include <array>
#include <ctime>
#include <sys/stat.h>

namespace host {

namespace {

// Not by QDateTime: it sets up its formatting at the first use, and threads that do so together get an empty text.
QString textOf(const timespec& time)
{
    constexpr int nanosecondDigits = 9;
    constexpr int decimal = 10;
    std::tm utc {};
    gmtime_r(&time.tv_sec, &utc);
    std::array<char, 32> seconds {};
    const std::size_t size
        = std::strftime(seconds.data(), seconds.size(), "%Y-%m-%dT%H:%M:%S", &utc);
    return QString::fromLatin1(seconds.data(), static_cast<int>(size))
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
