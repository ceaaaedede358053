#pragma once

#include "host/HostError.h"

namespace vxroi {

/// Runs the command that the arguments name, and reports a failure as one line on stderr.
/// \return the program's exit code.
host::ExitCode runCommandLine(int argc, char** argv);

} // namespace vxroi
