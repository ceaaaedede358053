#pragma once

#include <QJsonObject>
#include <QString>

#include <optional>

namespace host {

/// By what a file is known to be the one that it was.
enum class KnownBy {
    Time, ///< its size and when it was modified
    Checksum, ///< its size and its SHA-256, which takes reading it
};

/// The state of a file: {"bytes", "modified"} with the time in UTC to the nanosecond, or {"bytes", "sha256"}.
/// \return none for a file that cannot be read, or is no regular file.
std::optional<QJsonObject> stateOf(const QString& path, KnownBy knownBy);

} // namespace host
