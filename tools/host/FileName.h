#pragma once

#include <QByteArray>
#include <QString>

/// \file
/// File names as text and as the system's bytes. They are UTF-8 in every locale. A byte that is not valid UTF-8 becomes
/// the second half of a surrogate pair, U+DC80 to U+DCFF for 0x80 to 0xFF; JSON has these as "\udc80" to "\udcff", and
/// Python's file functions understand them.

namespace host {

QString textOfName(const QByteArray& name);

QByteArray bytesOfName(const QString& text);

/// Whether \a text can be a file name: it must not contain NUL, which ends names in the system, nor half of a surrogate
/// pair that does not stand for a byte.
bool mayBeName(const QString& text);

/// Whether \a path is "-": standard input as the name of an input, standard output as that of an output.
inline bool isStandardStream(const QString& path) { return path == QLatin1String("-"); }

/// Makes Qt convert file names with these functions.
void useForFileNames();

} // namespace host
