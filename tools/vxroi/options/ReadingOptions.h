#pragma once

#include "host/picture/ReadingRules.h"

#include <string>

namespace CLI {
class App;
}

namespace vxroi {

/// Adds the limits for reading pictures and --on-broken to \a command, in the \a group of its --help; empty: with the
/// other options.
void addReadingOptions(CLI::App& command, host::ReadingRules& reading, const std::string& group);

} // namespace vxroi
