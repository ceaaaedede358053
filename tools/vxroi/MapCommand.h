#pragma once

#include <string>

namespace vxroi {

/// The command line of `vxroi map`, as given.
struct MapArguments {
    std::string picture;
    std::string output;
    std::string overlay; ///< empty: write no overlay
    std::string ratio; ///< empty: outline no crop in the overlay
};

/// Writes the salience map of a picture, and the overlay when one is named: both or neither.
/// \throws host::HostError
void runMap(const MapArguments& arguments);

} // namespace vxroi
