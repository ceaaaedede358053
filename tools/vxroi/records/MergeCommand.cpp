#include "MergeCommand.h"

#include "Merge.h"
#include "host/files/OutputName.h"
#include "vxroi/OutputFiles.h"

#include "vxroi/options/Checks.h"
#include "vxroi/options/CommonOptions.h"

namespace vxroi {

using host::ExitCode;
using host::HostError;

ExitCode runMerge(const MergeArguments& arguments)
{
    for (const std::string& result : arguments.results) {
        for (const std::string& output : { arguments.output, arguments.again }) {
            if (!output.empty())
                requireFreeName(pathFrom(result), pathFrom(output), arguments.ifExists);
        }
    }
    if (!arguments.again.empty()
        && host::canonicalPathOf(pathFrom(arguments.again))
            == host::canonicalPathOf(pathFrom(arguments.output)))
        throw HostError(ExitCode::Usage, pathFrom(arguments.again),
            QStringLiteral("named for two outputs"),
            QStringLiteral("give the records and the list different names"));
    return Merge(arguments).run();
}

void addMergeCommand(CLI::App& app, MergeArguments& arguments, ExitCode& exitCode)
{
    CLI::App* const merge = app.add_subcommand(
        "merge", "Join the records of a batch's parts, in the order of its inputs");
    merge->add_option("RESULTS", arguments.results, "the files of records")->required();
    CLI::Option* const from = merge
                                  ->add_option("--from", arguments.from,
                                      "the list of all inputs; those without a record are missing")
                                  ->type_name("FILE");
    merge->add_flag("-0,--null", arguments.nulSeparated, "paths in the list are NUL-terminated")
        ->needs(from);
    CLI::Option* const folder = merge
                                    ->add_option("--folder", arguments.folder,
                                        "the folder of all inputs, instead of a list")
                                    ->type_name("DIR")
                                    ->excludes(from);
    merge->add_flag("-r,--recursive", arguments.recursive, "include the folders within it")
        ->needs(folder);
    merge
        ->add_option("-o,--output", arguments.output,
            "write the records to this file, not to standard output")
        ->check(names("file"))
        ->type_name("FILE");
    merge
        ->add_option("--again", arguments.again,
            "write a list of the inputs that are missing or have failed to this file")
        ->check(names("file"))
        ->type_name("FILE");
    addIfExistsOption(*merge, arguments.ifExists);
    addQuietOption(*merge, arguments.quiet);
    merge->callback([&] { exitCode = runMerge(arguments); });
}

} // namespace vxroi
