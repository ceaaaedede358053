#pragma once

#include <QByteArray>
#include <QString>

#include <string>

namespace host {

/// What the program says before it ends with ExitCode::Internal for want of memory.
constexpr const char* noMemoryLine
    = "vxroi: there is not enough memory; allow more, see ulimit -v\n";

/// Writes \a bytes to the program's standard output, at once.
/// \throws HostError with ExitCode::ClosedPipe when nobody reads there any more, or with ExitCode::WriteFailed.
void writeOutput(const QByteArray& bytes);

/// Writes \a text to the program's stderr, at once and in one piece, from any thread.
void writeError(const std::string& text);

/// Writes one line to stderr that says what the user should know of the picture at \a path.
void writeWarning(const QString& path, const QString& warning);

/// The descriptor of the program's stderr. May be asked for in a signal handler.
int errorDescriptor();

/// From here on only writeError() writes to the program's stderr: decoders complain there of pictures, in words that
/// nobody understands. Call it before there are threads.
void keepLibrariesQuiet();

} // namespace host
