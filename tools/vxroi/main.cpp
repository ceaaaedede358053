#include "ClusterCommand.h"
#include "CropCommand.h"
#include "MapCommand.h"
#include "Program.h"
#include "vxroi/batch/BatchCommand.h"
#include "vxroi/records/MergeCommand.h"
#include "vxroi/records/StatsCommand.h"
#include "vxroi/report/ReportCommand.h"

#include <CLI/CLI.hpp>

namespace {

const char* const exitCodes
    = R"(Exit codes: 0 done, 1 some of several pictures failed, 64 wrong command line,
65 the file is not a picture, or is damaged, 66 no such file,
69 the face detector is missing or has failed,
70 no memory, no threads or an internal error, 73 the output cannot be created,
74 writing failed, 130 interrupted, 141 nobody reads standard output any more.)";

// The arguments of each command.
struct Commands {
    vxroi::CropArguments crop;
    vxroi::BatchArguments batch;
    vxroi::MapArguments map;
    vxroi::MergeArguments merge;
    vxroi::ClusterArguments cluster;
    vxroi::ReportArguments report;
    vxroi::StatsArguments stats;
};

host::ExitCode runCommand(int argc, char** argv)
{
    CLI::App app("Finds what draws the eye in a picture, and the crop that keeps it.", "vxroi");
    app.set_version_flag("--version", "vxroi " VXROI_VERSION);
    app.footer(exitCodes);
    app.require_subcommand(1);
    host::ExitCode exitCode = host::ExitCode::Success;
    Commands commands;
    addCropCommand(app, commands.crop, exitCode);
    addBatchCommand(app, commands.batch, exitCode);
    addMapCommand(app, commands.map);
    addMergeCommand(app, commands.merge, exitCode);
    addClusterCommand(app, commands.cluster);
    addReportCommand(app, commands.report, exitCode);
    addStatsCommand(app, commands.stats);
    return vxroi::parse(app, argc, argv, exitCode);
}

} // namespace

int main(int argc, char** argv)
{
    return vxroi::runProgram(argc, argv, [=] { return runCommand(argc, argv); });
}
