#pragma once

#include "Resumption.h"

#include "vxroi/options/CropOptions.h"
#include "vxroi/records/RecordPrinter.h"

#include <string>

namespace vxroi {

/// The command line of `vxroi batch`, as given.
struct BatchArguments {
    std::string folder; ///< empty: inputs come from a list
    bool recursive = false;
    std::string
        from; ///< a list of paths or inputs, "-" for standard input; empty: a folder is named
    bool nulSeparated = false;
    bool allowOutside = false; ///< outputs that the list names may lie outside the current folder
    std::string shard; ///< empty: the whole list
    std::string resume; ///< the file of records; empty: they go to standard output
    Retry retry = Retry::FromOutside;
    bool checksum = false; ///< recognise files by their content, not by their time
    std::string timings; ///< a file; empty: no timings are written
    int jobs = 0; ///< 0: one for each core
    bool quiet = false;
    RecordPrinter printer { RecordPrinter::Output::Json };
    CropOptions crop;
    AnalysisOptions analysis;
};

/// Adds the command to \a app; its callback runs it and sets \a exitCode.
void addBatchCommand(CLI::App& app, BatchArguments& arguments, host::ExitCode& exitCode);

/// Crops the pictures of a folder or a list on all cores, and writes a JSON record for each, in the order of the
/// inputs. The failure of a single picture goes into its record.
/// \throws host::HostError when the command line is wrong, the list cannot be read, or the records cannot be written.
host::ExitCode runBatch(const BatchArguments& arguments);

} // namespace vxroi
