#pragma once

#include "host/HostError.h"

namespace vxroi {

/// What the program says before it ends with ExitCode::Internal for want of memory.
constexpr const char* noMemoryLine
    = "vxroi: there is not enough memory; allow more, see ulimit -v\n";

/// Runs the command that the arguments name; reports a failure as one line on stderr.
/// \return the program's exit code.
host::ExitCode runCommandLine(int argc, char** argv);

} // namespace vxroi
