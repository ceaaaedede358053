#pragma once

#include <string>

namespace host {

/// Writes \a text to the program's stderr, at once and in one piece, from any thread.
void writeError(const std::string& text);

/// Waits until \a stream, a descriptor, can be written to. Whoever shares it may have made it refuse to wait by itself.
void waitForRoom(int stream);

/// Where the program's stderr is. May be asked in a signal handler.
int errorDescriptor();

/// From here on only writeError() writes to the program's stderr: decoders complain there of pictures, in words that
/// nobody understands. To be called before there are threads.
void keepLibrariesQuiet();

} // namespace host
