#pragma once

#include "Options.h"

#include <string>

namespace vxroi {

/// The command line of `vxroi cluster`, as given.
struct ClusterArguments {
    std::string picture;
    std::string grid = "12x8";
    std::string output; ///< empty: write no picture of the cells
    std::string ifExists = "fail";
    AnalysisOptions analysis;
};

/// Adds the command to the program's; its callback runs it.
void addClusterCommand(CLI::App& app, ClusterArguments& arguments);

/// Prints how salient each cell of a grid over the picture is, as one line of JSON, and writes the
/// cells as a picture when an output is named.
/// \throws host::HostError
void runCluster(const ClusterArguments& arguments);

} // namespace vxroi
