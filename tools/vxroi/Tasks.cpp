#include "Tasks.h"

namespace vxroi {

using host::ExitCode;
using host::HostError;

TaskPlan::TaskPlan(const CropOptions& options, bool needsShapes)
    : commonShapes(options.shapes())
    , commonWishes(options.wishes())
{
    if (!options.output.empty())
        commonOutput = host::OutputName(QString::fromStdString(options.output));
    if (needsShapes && commonShapes.isEmpty())
        throw HostError(ExitCode::Usage, QStringLiteral("the crop"),
            QStringLiteral("no shape is named"),
            QStringLiteral("add --ratio 16:9 or --size 1200x630; see vxroi --help"));
}

TaskPlan::Planned TaskPlan::plan(const Input& input)
{
    Planned planned;
    planned.task = { input.path, input.shapes.isEmpty() ? commonShapes : input.shapes, {},
        input.wishes.value_or(commonWishes) };
    planned.record.path = input.path;
    planned.record.failure = input.failure;
    try {
        if (!input.failure && planned.task.shapes.isEmpty())
            throw HostError(ExitCode::Usage, input.path, QStringLiteral("no shape is named"),
                QStringLiteral("add --ratio or --size, or \"ratios\" to its line"));
        addOutputs(input, planned.task);
    } catch (const HostError& error) {
        planned.record.failure = error;
    }
    return planned;
}

void TaskPlan::addOutputs(const Input& input, host::CropTask& task)
{
    const bool hasOwn = !input.output.isEmpty();
    if (!hasOwn && !commonOutput)
        return;
    const host::OutputName name = hasOwn ? host::OutputName(input.output) : *commonOutput;
    for (const host::CropShape& shape : task.shapes) {
        const QString output = name.nameFor(input.path, shape);
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
    const Planned planned = plan(input);
    return planned.record.failure ? planned.record : cropper.crop(planned.task);
}

} // namespace vxroi
