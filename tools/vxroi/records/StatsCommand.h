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

/// Adds the command to the program's; its callback runs it.
void addStatsCommand(CLI::App& app, StatsArguments& arguments);

/// Sums up what became of the pictures of batches, and how long they took.
/// \throws host::HostError when a file cannot be read, or holds something else.
void runStats(const StatsArguments& arguments);

} // namespace vxroi
