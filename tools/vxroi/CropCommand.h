#pragma once

#include <string>

namespace vxroi {

/// The command line of `vxroi crop`, as given.
struct CropArguments {
    std::string picture;
    std::string ratio;
    std::string output; ///< empty: write no file
};

/// Prints the window to keep; writes the cropped picture when an output is named.
/// \throws host::HostError
void runCrop(const CropArguments& arguments);

} // namespace vxroi
