#include "CropCommand.h"

#include "host/HostError.h"
#include "host/StandardStreams.h"
#include "host/crop/Cropper.h"
#include "vxroi/concurrency/WorkerThreads.h"
#include "vxroi/inputs/Tasks.h"
#include "vxroi/options/CommonOptions.h"

#include <CLI/CLI.hpp>

namespace vxroi {

using host::CropRecord;
using host::ExitCode;
using host::HostError;

namespace {

// Writes the failure or the warnings of one picture to stderr.
void complainOf(const CropRecord& record)
{
    if (record.failure) {
        host::writeMessage(record.failure->what());
        return;
    }
    for (const QString& warning : record.warnings)
        host::writeWarning(record.path, warning);
    for (const host::CropResult& crop : record.crops) {
        if (crop.state == host::OutputState::Skipped)
            host::writeWarning(crop.outputPath, QStringLiteral("already exists; skipped"));
    }
}

} // namespace

host::ExitCode runCrop(const CropArguments& arguments)
{
    const bool isStreamTaken = arguments.crop.output == "-";
    if (isStreamTaken && arguments.printer.isJsonWanted())
        throw HostError(ExitCode::Usage, QStringLiteral("--output -"),
            QStringLiteral("standard output is for the record"),
            QStringLiteral("name a file, or leave --json out"));
    const TaskPlan plan(arguments.crop, arguments.analysis);
    plan.requireShapes();
    OutputClaims claims;
    host::Cropper cropper(
        arguments.crop.rules(arguments.analysis), arguments.analysis.rules.reading.mostPixels);
    const bool isOnlyPicture = arguments.pictures.size() == 1;
    const bool isOnlyLine = isOnlyPicture && plan.shapes().size() == 1;
    startWorkerThreads();
    bool hasFailed = false;
    for (const std::string& picture : arguments.pictures) {
        PlannedTask planned = plan.plan({ pathFrom(picture) });
        claims.claim(planned);
        const CropRecord record = cropper.crop(planned.task);
        if (arguments.printer.isJsonWanted() || !(record.failure || isStreamTaken))
            host::writeOutput(arguments.printer.linesOf(record, isOnlyLine));
        if (record.failure && (isOnlyPicture || record.failure->code() == ExitCode::ClosedPipe))
            throw HostError(*record.failure);
        if (!arguments.quiet)
            complainOf(record);
        hasFailed = hasFailed || record.failure;
    }
    return hasFailed ? ExitCode::SomeFailed : ExitCode::Success;
}

void addCropCommand(CLI::App& app, CropArguments& arguments, host::ExitCode& exitCode)
{
    CLI::App* const crop
        = app.add_subcommand("crop", "Choose the crops of pictures, and write them");
    crop->add_option(
            "PICTURE", arguments.pictures, "the picture files to read; - is standard input")
        ->required();
    arguments.crop.addTo(*crop);
    arguments.printer.addTo(*crop);
    addQuietOption(*crop, arguments.quiet);
    arguments.analysis.addTo(*crop);
    crop->callback([&] { exitCode = runCrop(arguments); });
}

} // namespace vxroi
