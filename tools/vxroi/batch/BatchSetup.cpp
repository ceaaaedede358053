#include "BatchSetup.h"

#include "host/HostError.h"
#include "vxroi/options/CommonOptions.h"

#include <utility>

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

void requireConsistent(const BatchArguments& arguments)
{
    if (arguments.folder.empty() == arguments.from.empty())
        throw HostError(ExitCode::Usage, QStringLiteral("batch"),
            QStringLiteral("takes a folder or a list, not both"),
            QStringLiteral("name a folder, or add --from FILE"));
    if (arguments.crop.output == "-")
        throw HostError(ExitCode::Usage, QStringLiteral("--output -"),
            QStringLiteral("standard output is for records"),
            QStringLiteral("name files, such as {stem}-{ratio}.jpg"));
    if (arguments.resume == "-")
        throw HostError(ExitCode::Usage, QStringLiteral("--resume -"),
            QStringLiteral("only a file can be resumed"),
            QStringLiteral("name one, or leave --resume out"));
    if (arguments.crop.map == "-")
        throw HostError(ExitCode::Usage, QStringLiteral("--map -"),
            QStringLiteral("standard input is one map for many pictures"),
            QStringLiteral("name files, such as masks/{stem}.png"));
}

} // namespace

std::unique_ptr<Inputs> inputsOf(const BatchArguments& arguments)
{
    requireConsistent(arguments);
    const Shard shard = parseShard(arguments.shard);
    if (arguments.folder.empty())
        return std::make_unique<ListedInputs>(
            pathFrom(arguments.from), arguments.nulSeparated, shard);
    return std::make_unique<FolderInputs>(
        pathFrom(arguments.folder), arguments.recursive, shard, arguments.crop);
}

std::optional<RecordFile> recordsOf(const BatchArguments& arguments)
{
    if (arguments.resume.empty())
        return std::nullopt;
    return std::optional<RecordFile>(std::in_place, pathFrom(arguments.resume));
}

TaskPlan planOf(const BatchArguments& arguments)
{
    TaskPlan plan(arguments.crop, arguments.analysis, arguments.allowOutside);
    if (arguments.from.empty())
        plan.requireShapes();
    return plan;
}

std::unique_ptr<OwnOutputs> ownOutputsOf(
    const BatchArguments& arguments, std::optional<RecordFile>& records)
{
    return records ? std::make_unique<OwnOutputs>(pathFrom(arguments.resume), records->earlier())
                   : nullptr;
}

host::CropRules rulesOf(
    const BatchArguments& arguments, const std::unique_ptr<OwnOutputs>& ownOutputs)
{
    host::CropRules rules = arguments.crop.rules(arguments.analysis);
    rules.knownBy = arguments.checksum ? host::KnownBy::Checksum : host::KnownBy::Time;
    rules.isResumed = ownOutputs != nullptr;
    rules.journal = ownOutputs.get();
    return rules;
}

} // namespace vxroi
