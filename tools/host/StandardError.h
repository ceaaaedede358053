#pragma once

#include <string>

namespace host {

/// Writes \a text to the program's stderr, at once and in one piece, from any thread.
void writeError(const std::string& text);

} // namespace host
