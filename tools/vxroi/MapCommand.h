#pragma once

#include "vxroi/options/AnalysisOptions.h"

#include "host/crop/Constraints.h"
#include "host/crop/Cropper.h"

#include <QSize>

#include <optional>

#include <string>

namespace vxroi {

/// The command line of `vxroi map`, as given.
struct MapArguments {
    std::string picture;
    std::string output; ///< empty: write no blended map
    std::string perMethod; ///< a folder; empty: write no maps of single methods
    std::string overlay; ///< empty: write no overlay
    std::optional<QSize> ratio; ///< none: outline no crop in the overlay
    host::Constraints constraints;
    std::string map; ///< a file to take the map from; empty: it is computed
    bool stretch = false; ///< stretch the levels of maps from black to white
    host::IfExists ifExists = host::IfExists::Fail;
    bool quiet = false;
    AnalysisOptions analysis;
};

/// Adds the command to the program's; its callback runs it.
void addMapCommand(CLI::App& app, MapArguments& arguments);

/// Writes what the arguments name of a picture's salience: all of it or nothing.
/// \throws host::HostError
void runMap(const MapArguments& arguments);

} // namespace vxroi
