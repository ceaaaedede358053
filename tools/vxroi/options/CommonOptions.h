#pragma once

#include "host/crop/Constraints.h"
#include "host/crop/Cropper.h"
#include "host/crop/MapStore.h"

#include <QString>

#include <memory>
#include <string>

namespace CLI {
class App;
}

namespace vxroi {

/// Adds --if-exists to a command that writes a few files: fail or overwrite.
void addIfExistsOption(CLI::App& command, host::IfExists& ifExists);

/// Adds --maps, a folder in which maps are kept.
void addMapsOption(CLI::App& command, std::string& folder);

/// The maps in a folder; nullptr for an empty name.
/// \throws host::HostError when there is no such folder and none can be made.
std::shared_ptr<const host::MapStore> mapsIn(const std::string& folder);

/// Adds -q: nothing goes to stderr but the line that says why the command as a whole failed.
void addQuietOption(CLI::App& command, bool& quiet);

/// Adds --keep and --avoid, which are areas as parseArea() reads them.
void addAreaOptions(CLI::App& command, host::Constraints& constraints);

/// A path as it is given on a command line.
QString pathFrom(const std::string& argument);

} // namespace vxroi
