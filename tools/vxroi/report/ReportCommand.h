#pragma once

#include "vxroi/options/AnalysisOptions.h"

#include "host/crop/CropShape.h"
#include "host/crop/Cropper.h"

#include <QVector>

#include <string>
#include <vector>

namespace vxroi {

/// The command line of `vxroi report`, as given.
struct ReportArguments {
    std::vector<std::string> inputs; ///< pictures, and folders of them; none: records are named
    bool recursive = false;
    std::string from; ///< a file of records, "-" for standard input
    std::string output;
    QVector<host::CropShape> ratios { { QStringLiteral("1:1"), { 1, 1 }, {} } };
    bool methods = false;
    host::IfExists ifExists = host::IfExists::Fail;
    std::string maps; ///< empty: maps are not kept
    bool quiet = false;
    AnalysisOptions analysis;
};

/// Adds the command to the program's; its callback runs it and sets \a exitCode.
void addReportCommand(CLI::App& app, ReportArguments& arguments, host::ExitCode& exitCode);

/// Writes one page of HTML, with all its pictures in it, that shows for each picture its crops beside those of the
/// centre, its map and the numbers; none, with a line that says so, when there is no picture.
/// \throws host::HostError when the page cannot be written, or what is read is no record.
host::ExitCode runReport(const ReportArguments& arguments);

} // namespace vxroi
