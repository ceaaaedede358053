#pragma once

#include "vxroi/options/AnalysisOptions.h"

#include "host/crop/CropTask.h"

#include <QSize>

#include <string>

namespace vxroi {

/// The command line of `vxroi cluster`, as given.
struct ClusterArguments {
    std::string picture;
    QSize grid { 12, 8 }; ///< columns and rows
    bool json = false; ///< print the cells as a table
    std::string output; ///< a PNG for the picture of the cells; empty: none is written
    host::IfExists ifExists = host::IfExists::Fail;
    bool quiet = false;
    AnalysisOptions analysis;
};

/// Adds the command to \a app; its callback runs it.
void addClusterCommand(CLI::App& app, ClusterArguments& arguments);

/// Rates how salient each cell of a grid over the picture is, and writes the result as one line of JSON, as a picture
/// of the cells, or both.
/// \throws host::HostError
void runCluster(const ClusterArguments& arguments);

} // namespace vxroi
