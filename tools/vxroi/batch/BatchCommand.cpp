#include "BatchCommand.h"

#include "Batch.h"
#include "vxroi/options/Checks.h"
#include "vxroi/options/CommonOptions.h"

#include <CLI/CLI.hpp>

namespace vxroi {

host::ExitCode runBatch(const BatchArguments& arguments) { return Batch(arguments).run(); }

namespace {

void addInputOptions(CLI::App& batch, BatchArguments& arguments)
{
    batch.add_option("FOLDER", arguments.folder, "the folder of pictures");
    batch.add_flag("-r,--recursive", arguments.recursive, "include the folders within it");
    CLI::Option* const from
        = batch
              .add_option("--from", arguments.from,
                  "read paths, or inputs as JSON, from the lines of this file; - is standard input")
              ->type_name("FILE");
    batch.add_flag("-0,--null", arguments.nulSeparated, "paths in the list are NUL-terminated")
        ->needs(from);
    batch
        .add_flag("--allow-outside", arguments.allowOutside,
            "let \"out\" of a list's lines name files outside the current folder")
        ->needs(from);
}

void addRecordOptions(CLI::App& batch, BatchArguments& arguments)
{
    CLI::Option* const resume
        = batch
              .add_option("--resume", arguments.resume,
                  "write records to this file, and do only what an earlier run has not done")
              ->type_name("FILE");
    addChoice<Retry>(batch, "--retry", arguments.retry,
        { { "outside", Retry::FromOutside }, { "all", Retry::All }, { "none", Retry::None } },
        "which failures of an earlier run to retry: those from outside, such as a full disk, all "
        "or none")
        ->type_name("WHICH")
        ->needs(resume);
    batch.add_flag("--checksum", arguments.checksum,
        "recognise a picture by its content, not by its size and time");
    batch
        .add_option("--timings", arguments.timings,
            "write how long each picture took to this file, for vxroi stats")
        ->type_name("FILE");
}

void addShareOptions(CLI::App& batch, BatchArguments& arguments)
{
    batch
        .add_option("--shard", arguments.shard,
            "crop only this part of the list, such as 2/8; auto or auto/8 takes it from the array "
            "job")
        ->type_name("I/N");
    batch.add_option("-j,--jobs", arguments.jobs, "pictures at a time (default: one per core)")
        ->type_name("N")
        ->check(wholeNumber(1, 1024));
}

} // namespace

void addBatchCommand(CLI::App& app, BatchArguments& arguments, host::ExitCode& exitCode)
{
    CLI::App* const batch = app.add_subcommand(
        "batch", "Crop the pictures of a folder or a list, and print a JSON record for each");
    addInputOptions(*batch, arguments);
    arguments.crop.addTo(*batch);
    addRecordOptions(*batch, arguments);
    addShareOptions(*batch, arguments);
    arguments.printer.addTo(*batch);
    addQuietOption(*batch, arguments.quiet);
    arguments.analysis.addTo(*batch);
    batch->callback([&] { exitCode = runBatch(arguments); });
}

} // namespace vxroi
