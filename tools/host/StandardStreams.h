#pragma once

#include <QByteArray>
#include <QString>

#include <string>

namespace host {

/// The message that a program writes before it ends with ExitCode::Internal because memory has run out.
constexpr const char* noMemory = "there is not enough memory; allow more, see ulimit -v";

/// Writes \a bytes to standard output, unbuffered.
/// \throws HostError with ExitCode::ClosedPipe when nobody reads it any more, or with ExitCode::WriteFailed.
void writeOutput(const QByteArray& bytes);

/// Writes \a text to stderr, unbuffered and in one piece. May be called from any thread.
void writeError(const std::string& text);

/// The name by which the program was called, which begins its messages. May be called in a signal handler.
const char* programName();

/// Writes a line to stderr: the program's name and \a message.
void writeMessage(const std::string& message);

/// Writes a warning about the picture at \a path to stderr, on one line.
void writeWarning(const QString& path, const QString& warning);

/// The file descriptor of the program's stderr. May be called in a signal handler.
int errorDescriptor();

/// From this call on, only writeError() writes to the program's stderr. Output of libraries is discarded: decoders
/// report damaged pictures in terms of their own internals. Call it before starting threads.
void keepLibrariesQuiet();

} // namespace host
