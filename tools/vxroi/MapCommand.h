#pragma once

#include "vxroi/options/Options.h"

#include <string>
#include <vector>

namespace vxroi {

/// The command line of `vxroi map`, as given.
struct MapArguments {
    std::string picture;
    std::string output; ///< empty: write no blended map
    std::string perMethod; ///< a folder; empty: write no maps of single methods
    std::string overlay; ///< empty: write no overlay
    std::string ratio; ///< empty: outline no crop in the overlay
    std::vector<std::string> keep;
    std::vector<std::string> avoid;
    std::string map; ///< a file to take the map from; empty: it is computed
    bool stretch = false; ///< stretch the levels of maps from black to white
    std::string ifExists = "fail";
    bool quiet = false;
    AnalysisOptions analysis;
};

/// Adds the command to the program's; its callback runs it.
void addMapCommand(CLI::App& app, MapArguments& arguments);

/// Writes what the arguments name of a picture's salience: all of it or nothing.
/// \throws host::HostError
void runMap(const MapArguments& arguments);

} // namespace vxroi
