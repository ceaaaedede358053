#pragma once

#include "host/ExitCode.h"
#include "host/picture/ReadingRules.h"

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace faces {

/// The command line of vxroi-faces, as given.
struct FacesArguments {
    std::vector<std::string> pictures;
    std::string from; ///< a list, "-" for standard input; empty: pictures are named
    bool nulSeparated = false;
    int size = 1280;
    double threshold = 0.1;
    bool quiet = false;
    host::ReadingRules reading;

    /// Adds the options to \a app.
    void addTo(CLI::App& app);
};

/// Finds faces in pictures, and prints a line of JSON for each: the line of the list, or an object with the path, to
/// which "faces" is added, or "error" when the picture cannot be read.
/// \throws host::HostError when the command line is wrong, the list cannot be read, or the only picture fails.
host::ExitCode runFaces(const FacesArguments& arguments);

} // namespace faces
