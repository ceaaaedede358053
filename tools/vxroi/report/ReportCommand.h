#pragma once

#include "vxroi/options/AnalysisOptions.h"
#include "vxroi/options/FaceOptions.h"

#include "host/crop/CropShape.h"
#include "host/crop/CropTask.h"

#include <QVector>

#include <string>
#include <vector>

namespace vxroi {

/// The command line of `vxroi report`, as given.
struct ReportArguments {
    std::vector<std::string> inputs; ///< pictures and folders; empty: records are shown
    bool recursive = false;
    std::string from; ///< a file of records, "-" for standard input; empty: pictures are shown
    std::string output;
    QVector<host::CropShape> ratios { { QStringLiteral("1:1"), { 1, 1 }, {} } };
    bool methods = false;
    host::IfExists ifExists = host::IfExists::Fail;
    std::string maps; ///< a folder; empty: maps are not stored
    FaceOptions faces;
    bool quiet = false;
    AnalysisOptions analysis;
};

/// Adds the command to \a app; its callback runs it and sets \a exitCode.
void addReportCommand(CLI::App& app, ReportArguments& arguments, host::ExitCode& exitCode);

/// Writes one page of HTML with all pictures embedded. For each picture it shows the crops beside those of the centre,
/// the map and the numbers. When there are no pictures, writes a warning and no page.
/// \throws host::HostError when the page cannot be written, or a line is not a record.
host::ExitCode runReport(const ReportArguments& arguments);

} // namespace vxroi
