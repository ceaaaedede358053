#pragma once

#include "host/crop/Constraints.h"
#include "host/crop/CropTask.h"
#include "host/crop/MapStore.h"

#include <QString>

#include <memory>
#include <string>

namespace CLI {
class App;
}

namespace vxroi {

/// Adds --if-exists with the choices fail and overwrite, for commands that write only a few files.
void addIfExistsOption(CLI::App& command, host::IfExists& ifExists);

/// Adds --maps, the folder in which maps are stored.
void addMapsOption(CLI::App& command, std::string& folder);

/// The store of maps in \a folder; null when the name is empty.
/// \throws host::HostError when the folder does not exist and cannot be created.
std::shared_ptr<const host::MapStore> mapsIn(const std::string& folder);

/// Adds --quiet: nothing is written to stderr but the reason why the command as a whole failed.
void addQuietOption(CLI::App& command, bool& quiet);

/// Adds --keep and --avoid; see parseArea() for their values.
void addAreaOptions(CLI::App& command, host::Constraints& constraints);

/// Converts a path on the command line, in the system's bytes, to text.
QString pathFrom(const std::string& argument);

} // namespace vxroi
