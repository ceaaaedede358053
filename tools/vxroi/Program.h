#pragma once

#include "host/HostError.h"

#include <functional>

namespace CLI {
class App;
}

/// \file
/// What every command-line program does around its work.

namespace vxroi {

/// Prepares the process and calls \a work. An exception that leaves it is reported as one line on stderr.
/// \return the exit code of the program.
int runProgram(int argc, char** argv, const std::function<host::ExitCode()>& work);

/// Parses the arguments with \a app, whose callbacks do the work. A wrong command line is reported as one line on stderr.
/// \param exitCode what the callbacks set.
/// \return \a exitCode, or that of the wrong command line.
host::ExitCode parse(CLI::App& app, int argc, char** argv, const host::ExitCode& exitCode);

} // namespace vxroi
