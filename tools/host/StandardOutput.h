#pragma once

#include <QByteArray>

namespace host {

/// Writes \a bytes to the program's standard output, at once.
/// \throws HostError with ExitCode::ClosedPipe when nobody reads there any more, or with ExitCode::WriteFailed.
void writeOutput(const QByteArray& bytes);

} // namespace host
