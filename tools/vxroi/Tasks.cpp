#include "Tasks.h"

namespace vxroi {

using host::ExitCode;
using host::HostError;

namespace {

void requireWithin(const QString& folder, const QString& output, const QString& remedy)
{
    if (!host::isWithin(folder, output))
        throw HostError(ExitCode::CannotCreate, output,
            QStringLiteral("leads out of the folder %1").arg(folder), remedy);
}

} // namespace

TaskPlan::TaskPlan(const CropOptions& options, bool needsShapes, bool mayListsLeave)
    : commonShapes(options.shapes())
    , commonConstraints(options.constraints())
    , suffix(QString::fromStdString(options.writing.format))
    , areListsConfined(!mayListsLeave)
{
    if (!options.output.empty())
        commonOutput = host::OutputName(pathFrom(options.output));
    if (!options.map.empty())
        commonMap = host::OutputName(pathFrom(options.map), host::OutputName::Of::Picture);
    if (needsShapes && commonShapes.isEmpty())
        throw HostError(ExitCode::Usage, QStringLiteral("the crop"),
            QStringLiteral("no shape is named"),
            QStringLiteral("add --ratio 16:9 or --size 1200x630; see vxroi --help"));
}

host::CropTask TaskPlan::plan(const Input& input)
{
    host::CropTask task;
    task.path = input.path;
    task.shapes = input.shapes.isEmpty() ? commonShapes : input.shapes;
    task.constraints = input.constraints.value_or(commonConstraints);
    task.map = commonMap && input.map.isEmpty() ? commonMap->nameFor(input.path, {}) : input.map;
    task.failure = input.failure;
    try {
        if (!input.failure && task.shapes.isEmpty())
            throw HostError(ExitCode::Usage, input.path, QStringLiteral("no shape is named"),
                QStringLiteral("add --ratio or --size, or \"ratios\" to its line"));
        addOutputs(input, task);
    } catch (const HostError& error) {
        task.failure = error;
    }
    return task;
}

void TaskPlan::addOutputs(const Input& input, host::CropTask& task)
{
    const bool hasOwn = !input.output.isEmpty();
    if (!hasOwn && !commonOutput)
        return;
    const host::OutputName name = hasOwn ? host::OutputName(input.output) : *commonOutput;
    for (const host::CropShape& shape : task.shapes) {
        QString output = name.nameFor(input.path, shape, suffix);
        if (name.hasPlaces() && host::isStandardStream(output))
            output.prepend(QStringLiteral("./"));
        if (name.hasPlaces())
            requireWithin(name.folderFor(input.path), output,
                QStringLiteral("choose another name for the picture or the output"));
        if (hasOwn && areListsConfined)
            requireWithin(QStringLiteral("."), output,
                QStringLiteral("name a file within it, or allow more with --allow-outside"));
        const QString file = host::canonicalPathOf(output);
        if (usedOutputs.contains(file))
            throw HostError(ExitCode::Usage, output, QStringLiteral("named for two outputs"),
                QStringLiteral("tell them apart with {dir}, {stem} and {ratio}"));
        task.outputs.append(output);
        usedOutputs.insert(file);
    }
}

host::CropRecord TaskPlan::crop(host::Cropper& cropper, const Input& input)
{
    return cropper.crop(plan(input));
}

} // namespace vxroi
