#pragma once

#include <QJsonObject>
#include <QString>

#include <optional>

namespace host {

/// How an unchanged file is recognised.
enum class KnownBy {
    Time, ///< by its size and its modification time
    Checksum, ///< by its size and its SHA-256, for which the whole file is read
};

/// The state of a file: {"bytes", "modified"} with the time in UTC to the nanosecond, or {"bytes", "sha256"}.
/// \return std::nullopt for a file that cannot be read or is not a regular file.
std::optional<QJsonObject> stateOf(const QString& path, KnownBy knownBy);

} // namespace host
