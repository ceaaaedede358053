#pragma once

#include "vxroi/options/CropOptions.h"
#include "vxroi/records/RecordPrinter.h"

#include <string>
#include <vector>

namespace vxroi {

/// The command line of `vxroi crop`, as given.
struct CropArguments {
    std::vector<std::string> pictures;
    CropOptions crop;
    AnalysisOptions analysis;
    RecordPrinter printer { RecordPrinter::Output::Geometry };
    bool quiet = false;
};

/// Adds the command to \a app; its callback runs it and sets \a exitCode.
void addCropCommand(CLI::App& app, CropArguments& arguments, host::ExitCode& exitCode);

/// Prints the chosen crops, and writes the cropped pictures when an output is named. When one of several pictures
/// fails, that is reported on stderr and the others are still cropped.
/// \throws host::HostError when the command line is wrong, or the only picture fails.
host::ExitCode runCrop(const CropArguments& arguments);

} // namespace vxroi
