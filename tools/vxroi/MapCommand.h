#pragma once

#include "vxroi/options/AnalysisOptions.h"
#include "vxroi/options/FaceOptions.h"

#include "host/crop/Constraints.h"
#include "host/crop/CropTask.h"

#include <QSize>

#include <optional>

#include <string>

namespace vxroi {

/// The command line of `vxroi map`, as given.
struct MapArguments {
    std::string picture;
    std::string output; ///< a file for the blended map; empty: it is not written
    std::string perMethod; ///< a folder for the maps of single methods; empty: they are not written
    std::string overlay; ///< a file for the overlay; empty: it is not written
    std::optional<QSize> ratio; ///< the shape of the crop outlined in the overlay; nullopt: no crop
    host::Constraints constraints;
    FaceOptions faces;
    std::string map; ///< a file to read the map from; empty: the map is computed
    bool stretch = false; ///< stretch the levels of maps from black to white
    host::IfExists ifExists = host::IfExists::Fail;
    bool quiet = false;
    AnalysisOptions analysis;
};

/// Adds the command to \a app; its callback runs it.
void addMapCommand(CLI::App& app, MapArguments& arguments);

/// Writes the requested outputs: the blended map, the maps of methods and the overlay. Either all of them appear or
/// none.
/// \throws host::HostError
void runMap(const MapArguments& arguments);

} // namespace vxroi
