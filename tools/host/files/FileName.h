#pragma once

#include <QByteArray>
#include <QString>

/// \file
/// Names of files as text and as the system's bytes. They are UTF-8 in every locale; a byte that is no part of
/// UTF-8 becomes half of a surrogate pair, U+DC80 to U+DCFF for 0x80 to 0xFF, which JSON writes as "\udc80" to
/// "\udcff" and Python's file functions understand.

namespace host {

QString textOfName(const QByteArray& name);

QByteArray bytesOfName(const QString& text);

/// Whether a file may have \a text as its name: a NUL would end the name within the system, and half of a surrogate
/// pair is no character unless it stands for a byte.
bool mayBeName(const QString& text);

/// Whether \a path stands for standard input, where a picture is read, or for standard output, where one is
/// written.
inline bool isStandardStream(const QString& path) { return path == QLatin1String("-"); }

/// Makes Qt read and write names of files that way.
void useForFileNames();

} // namespace host
