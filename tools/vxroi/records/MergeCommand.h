#pragma once

#include "host/HostError.h"
#include "host/crop/Cropper.h"

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace vxroi {

/// The command line of `vxroi merge`, as given.
struct MergeArguments {
    std::vector<std::string> results;
    std::string from; ///< the list of all parts; empty: not named
    bool nulSeparated = false;
    std::string folder; ///< the folder of all parts; empty: not named
    bool recursive = false;
    std::string output; ///< empty: standard output
    std::string again; ///< empty: nobody wants a list to run again
    host::IfExists ifExists = host::IfExists::Fail;
    bool quiet = false;
};

/// Adds the command to the program's; its callback runs it and sets \a exitCode.
void addMergeCommand(CLI::App& app, MergeArguments& arguments, host::ExitCode& exitCode);

/// Joins the records of a batch's parts in the order of its inputs, each input once.
/// \return ExitCode::SomeFailed when an input is missing or has failed, or two have the same output.
/// \throws host::HostError when the parts are not those of one batch, or a file cannot be read or written.
host::ExitCode runMerge(const MergeArguments& arguments);

} // namespace vxroi
