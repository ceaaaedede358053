#include "CommandLine.h"

#include "ClusterCommand.h"
#include "CropCommand.h"
#include "MapCommand.h"
#include "host/FileName.h"
#include "host/StandardStreams.h"
#include "vxroi/batch/BatchCommand.h"
#include "vxroi/options/CommonOptions.h"
#include "vxroi/options/WrongCommandLine.h"
#include "vxroi/records/MergeCommand.h"
#include "vxroi/records/StatsCommand.h"
#include "vxroi/report/ReportCommand.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <new>
#include <sstream>
#include <string>
#include <vector>

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

const char* const exitCodes
    = R"(Exit codes: 0 done, 1 some of several pictures failed, 64 wrong command line,
65 the file is not a picture, or is damaged, 66 no such file,
70 no memory, no threads or an internal error, 73 the output cannot be created,
74 writing failed, 130 interrupted, 141 nobody reads standard output any more.)";

ExitCode fail(ExitCode code, const QString& line)
{
    host::writeError("vxroi: " + host::bytesOfName(host::onOneLine(line)).toStdString() + '\n');
    return code;
}

ExitCode failAsWrong(const CLI::App& app, const QString& complaint)
{
    return fail(ExitCode::Usage, withHelp(complaint, app));
}

// Prints the answer to --help or --version, which the parser reports as exceptions.
void printAnswer(const CLI::App& app, const CLI::Success& wish)
{
    std::ostringstream answer;
    app.exit(wish, answer);
    host::writeOutput(QByteArray::fromStdString(answer.str()));
}

// The arguments in reverse order, as the parser takes them. The parser would split "[a,b]" as a list; "./[a,b]" is the
// same file.
std::vector<std::string> reversedArguments(int argc, char** argv)
{
    std::vector<std::string> arguments;
    for (int i = argc - 1; i > 0; --i) {
        const std::string argument = argv[i];
        const bool isBracketed
            = argument.size() > 1 && argument.front() == '[' && argument.back() == ']';
        arguments.push_back(isBracketed ? "./" + argument : argument);
    }
    return arguments;
}

// The arguments of each command.
struct Commands {
    CropArguments crop;
    BatchArguments batch;
    MapArguments map;
    MergeArguments merge;
    ClusterArguments cluster;
    ReportArguments report;
    StatsArguments stats;

    void addTo(CLI::App& app, ExitCode& exitCode)
    {
        addCropCommand(app, crop, exitCode);
        addBatchCommand(app, batch, exitCode);
        addMapCommand(app, map);
        addMergeCommand(app, merge, exitCode);
        addClusterCommand(app, cluster);
        addReportCommand(app, report, exitCode);
        addStatsCommand(app, stats);
    }
};

} // namespace

ExitCode runCommandLine(int argc, char** argv)
try {
    CLI::App app("Finds what draws the eye in a picture, and the crop that keeps it.", "vxroi");
    app.set_version_flag("--version", "vxroi " VXROI_VERSION);
    app.footer(exitCodes);
    app.require_subcommand(1);
    ExitCode exitCode = ExitCode::Success;
    Commands commands;
    commands.addTo(app, exitCode);

    try {
        app.parse(reversedArguments(argc, argv));
    } catch (const CLI::Success& wish) {
        printAnswer(app, wish);
    } catch (const CLI::ParseError& error) {
        return failAsWrong(app, complaintOf(app, error));
    } catch (const HostError& error) {
        if (error.code() == ExitCode::Usage)
            return failAsWrong(app, pathFrom(error.what()));
        throw;
    }
    return exitCode;
} catch (const HostError& error) {
    // A closed pipe is no failure to report: its reader has what it wanted.
    return error.code() == ExitCode::ClosedPipe ? error.code()
                                                : fail(error.code(), pathFrom(error.what()));
} catch (const std::bad_alloc&) {
    host::writeError(host::noMemoryLine);
    return ExitCode::Internal;
} catch (const std::exception& error) {
    return fail(
        ExitCode::Internal, pathFrom(error.what()) + QStringLiteral("; please report this"));
}

} // namespace vxroi
