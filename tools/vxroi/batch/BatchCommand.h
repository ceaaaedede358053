#pragma once

#include "Resumption.h"

#include "vxroi/options/CropOptions.h"
#include "vxroi/records/RecordPrinter.h"

#include <string>

namespace vxroi {

/// The command line of `vxroi batch`, as given.
struct BatchArguments {
    std::string folder; ///< empty: a list is named
    bool recursive = false;
    std::string from; ///< a file of paths or inputs, "-" for standard input
    bool nulSeparated = false;
    bool mayLeave = false; ///< outputs that the list names may lie outside the current folder
    std::string shard; ///< empty: all of the list
    std::string resume; ///< empty: records go to standard output
    Retry retry = Retry::FromOutside;
    bool checksum = false; ///< know files by their content, not by their time
    std::string timings; ///< empty: nobody wants to know
    int jobs = 0; ///< 0: one for each core
    bool quiet = false;
    RecordPrinter printer { RecordPrinter::Output::Json };
    CropOptions crop;
    AnalysisOptions analysis;
};

/// Adds the command to the program's; its callback runs it and sets \a exitCode.
void addBatchCommand(CLI::App& app, BatchArguments& arguments, host::ExitCode& exitCode);

/// Crops the pictures of a folder or a list on all cores, and writes one record of JSON for each, in
/// the order of the list. Failures of single pictures are in their records.
/// \throws host::HostError when the command line is wrong, the list cannot be read, or the records cannot be written.
host::ExitCode runBatch(const BatchArguments& arguments);

} // namespace vxroi
