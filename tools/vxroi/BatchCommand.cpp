#include "BatchCommand.h"

#include "Inputs.h"
#include "Interruption.h"
#include "OrderedWork.h"
#include "Progress.h"
#include "RecordFile.h"
#include "Tasks.h"

#include "host/StandardError.h"

#include <CLI/CLI.hpp>

#include <optional>

namespace vxroi {

namespace {

using host::CropRecord;
using host::ExitCode;
using host::HostError;

std::unique_ptr<Inputs> inputsOf(const BatchArguments& arguments)
{
    if (arguments.folder.empty() == arguments.from.empty())
        throw HostError(ExitCode::Usage, QStringLiteral("batch"),
            QStringLiteral("wants a folder or a list, and not both"),
            QStringLiteral("name a folder, or add --from FILE; see vxroi batch --help"));
    if (arguments.crop.output == "-")
        throw HostError(ExitCode::Usage, QStringLiteral("--output -"),
            QStringLiteral("standard output is for records"),
            QStringLiteral("name files, such as {stem}-{ratio}.jpg"));
    if (arguments.crop.map == "-")
        throw HostError(ExitCode::Usage, QStringLiteral("--map -"),
            QStringLiteral("standard input is one map for many pictures"),
            QStringLiteral("name files, such as masks/{stem}.png"));
    const Shard shard = parseShard(arguments.shard);
    if (arguments.folder.empty())
        return std::make_unique<ListedInputs>(
            pathFrom(arguments.from), arguments.nulSeparated, shard);
    return std::make_unique<FolderInputs>(
        pathFrom(arguments.folder), arguments.recursive, shard, arguments.crop);
}

host::CropRules rulesOf(const BatchArguments& arguments)
{
    host::CropRules rules = arguments.crop.rules(arguments.analysis);
    rules.isResumed = !arguments.resume.empty();
    return rules;
}

// One run over all inputs.
class Batch {
public:
    explicit Batch(const BatchArguments& arguments)
        : inputs(inputsOf(arguments))
        , plan(arguments.crop, arguments.from.empty(), arguments.mayLeave)
        , cropper(rulesOf(arguments), arguments.analysis.maxPixels)
        , records(pathFrom(arguments.resume))
        , progress(inputs->count(), arguments.quiet)
        , work(arguments.jobs > 0 ? arguments.jobs : defaultWorkerCount())
    {
    }

    ExitCode run()
    {
        const Interruption interruption;
        while (const std::optional<Input> input = nextInput()) {
            begin(*input);
            if (work.isFull())
                finishOne();
        }
        while (!work.isEmpty())
            finishOne();
        progress.finish();
        if (Interruption::isRequested())
            throw HostError(ExitCode::Interrupted, QStringLiteral("interrupted"),
                QStringLiteral("%1 pictures have their records").arg(progress.done()),
                QStringLiteral("a run with --resume does the rest"));
        if (progress.done() == 0)
            throw HostError(ExitCode::MissingInput, QStringLiteral("batch"),
                QStringLiteral("there is no picture"),
                QStringLiteral("check the folder or the list, and --recursive"));
        return progress.failed() > 0 ? ExitCode::SomeFailed : ExitCode::Success;
    }

private:
    std::optional<Input> nextInput()
    {
        return Interruption::isRequested() ? std::nullopt : inputs->next();
    }

    void begin(const Input& input)
    {
        // Also for what an earlier run has done: its outputs are taken.
        host::CropTask task = plan.plan(input);
        bool hasFailed = false;
        if (records.takeKept(input.path, hasFailed)) {
            progress.addKept(hasFailed);
            return;
        }
        work.begin([this, task = std::move(task)]() -> std::optional<CropRecord> {
            if (Interruption::isRequested())
                return std::nullopt;
            return cropper.crop(task);
        });
    }

    void finishOne()
    {
        const std::optional<CropRecord> record = work.finishFirst();
        wasCutShort = wasCutShort || !record;
        if (wasCutShort)
            return;
        records.write(record->toJson());
        progress.addDone(
            record->failure ? std::string("vxroi: ") + record->failure->what() + '\n' : "");
    }

    std::unique_ptr<Inputs> inputs;
    TaskPlan plan;
    host::Cropper cropper;
    RecordFile records;
    Progress progress;
    bool wasCutShort = false; ///< an input was not begun: no record may follow
    OrderedWork<std::optional<CropRecord>> work;
};

} // namespace

ExitCode runBatch(const BatchArguments& arguments) { return Batch(arguments).run(); }

void addBatchCommand(CLI::App& app, BatchArguments& arguments, host::ExitCode& exitCode)
{
    CLI::App* const batch = app.add_subcommand(
        "batch", "Crop the pictures of a folder or a list, and print a JSON record for each");
    batch->add_option("FOLDER", arguments.folder, "the folder of pictures");
    batch->add_flag("-r,--recursive", arguments.recursive, "also the folders within it");
    CLI::Option* const from
        = batch
              ->add_option("--from", arguments.from,
                  "read paths, or inputs as JSON, from the lines of this file; - is standard input")
              ->type_name("FILE");
    batch->add_flag("-0,--null", arguments.nulSeparated, "paths of the list end in NUL")
        ->needs(from);
    batch
        ->add_flag("--allow-outside", arguments.mayLeave,
            "let \"out\" of a list's lines lead out of the current folder")
        ->needs(from);
    arguments.crop.addTo(*batch);
    batch
        ->add_option("--resume", arguments.resume,
            "write records to this file, behind those of an earlier run that it holds")
        ->type_name("FILE");
    batch
        ->add_option("--shard", arguments.shard,
            "crop only this part of the list, such as 2/8; auto asks the array job")
        ->type_name("I/N");
    batch
        ->add_option("-j,--jobs", arguments.jobs, "pictures at a time (default: one for each core)")
        ->type_name("N")
        ->check(CLI::Range(1, 1024));
    batch->add_flag("-q,--quiet", arguments.quiet, "say nothing about progress and failures");
    arguments.analysis.addTo(*batch);
    batch->callback([&] { exitCode = runBatch(arguments); });
}

} // namespace vxroi
