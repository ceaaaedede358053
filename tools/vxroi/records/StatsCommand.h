#pragma once

#include "host/HostError.h"

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace vxroi {

/// The command line of `vxroi stats`, as given.
struct StatsArguments {
    std::vector<std::string> results;
    std::vector<std::string> timings;
    bool json = false;
};

/// Adds the command to \a app; its callback runs it.
void addStatsCommand(CLI::App& app, StatsArguments& arguments);

/// Prints a summary of the records of batches, and of their timings.
/// \throws host::HostError when a file cannot be read, or contains something else.
void runStats(const StatsArguments& arguments);

} // namespace vxroi
