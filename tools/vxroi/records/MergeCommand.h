#pragma once

#include "host/HostError.h"
#include "host/crop/CropTask.h"

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace vxroi {

/// The command line of `vxroi merge`, as given.
struct MergeArguments {
    std::vector<std::string> results;
    std::string from; ///< the list of all inputs; empty: not given
    bool nulSeparated = false;
    std::string folder; ///< the folder of all inputs; empty: not given
    bool recursive = false;
    std::string output; ///< empty: standard output
    std::string again; ///< a file for the list of inputs to run again; empty: it is not written
    host::IfExists ifExists = host::IfExists::Fail;
    bool quiet = false;
};

/// Adds the command to \a app; its callback runs it and sets \a exitCode.
void addMergeCommand(CLI::App& app, MergeArguments& arguments, host::ExitCode& exitCode);

/// Joins the records of a batch's parts in the order of its inputs, each input once.
/// \return ExitCode::SomeFailed when an input has no record or has failed, two inputs have the same output, or a part
/// is damaged.
/// \throws host::HostError when the parts belong to different batches, or a file cannot be read or written.
host::ExitCode runMerge(const MergeArguments& arguments);

} // namespace vxroi
