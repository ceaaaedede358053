#include "Tasks.h"

#include "host/FileName.h"
#include "vxroi/options/CommonOptions.h"

#include <algorithm>

namespace vxroi {

using host::ExitCode;
using host::HostError;

namespace {

void requireWithin(const QString& folder, const QString& output, const QString& remedy)
{
    if (!host::isWithin(folder, output))
        throw HostError(ExitCode::CannotCreate, output,
            QStringLiteral("lies outside the folder %1").arg(folder), remedy);
}

void requireFewShapes(const QVector<host::CropShape>& shapes, const QString& subject)
{
    if (shapes.size() > host::mostShapes)
        throw HostError(ExitCode::Usage, subject,
            QStringLiteral("%1 shapes are too many").arg(shapes.size()),
            QStringLiteral("name at most %1 at a time").arg(host::mostShapes));
}

HostError namedTwice(const QString& output)
{
    return HostError(ExitCode::Usage, output, QStringLiteral("named for two outputs"),
        QStringLiteral("tell them apart with {dir}, {stem} and {ratio}"));
}

} // namespace

TaskPlan::TaskPlan(const CropOptions& options, const AnalysisOptions& analysis, bool allowOutside)
    : commonShapes(options.shapes())
    , commonConstraints(options.constraints)
    , suffix(options.writing.suffix())
    , request(options.request(analysis))
    , areListsConfined(!allowOutside)
{
    requireFewShapes(commonShapes, QStringLiteral("the crop"));
    if (!options.output.empty())
        commonOutput = host::OutputName(pathFrom(options.output));
    if (!options.map.empty())
        commonMap = host::OutputName(pathFrom(options.map), host::OutputName::Of::Picture);
}

void TaskPlan::requireShapes() const
{
    if (commonShapes.isEmpty())
        throw HostError(ExitCode::Usage, QStringLiteral("the crop"),
            QStringLiteral("no shape given"),
            QStringLiteral("add --ratio 16:9 or --size 1200x630"));
}

PlannedTask TaskPlan::plan(const Input& input) const
{
    PlannedTask planned;
    planned.place = input.place;
    host::CropTask& task = planned.task;
    task.path = input.path;
    task.shapes = input.shapes.isEmpty() ? commonShapes : input.shapes;
    task.constraints = input.constraints.value_or(commonConstraints);
    task.map = commonMap && input.map.isEmpty() ? commonMap->nameFor(input.path, {}) : input.map;
    task.detection = input.detection;
    task.request = { request, input.request };
    task.failure = input.failure;
    try {
        if (!input.failure && task.shapes.isEmpty())
            throw HostError(ExitCode::Usage, input.path, QStringLiteral("no shape given"),
                QStringLiteral("add --ratio or --size, or \"ratios\" to its line"));
        requireFewShapes(task.shapes, input.path);
        addOutputs(input, planned);
    } catch (const HostError& error) {
        task.failure = error;
    }
    return planned;
}

void TaskPlan::addOutputs(const Input& input, PlannedTask& planned) const
{
    const bool hasOwn = !input.output.isEmpty();
    if (!hasOwn && !commonOutput)
        return;
    const host::OutputName name = hasOwn ? host::OutputName(input.output) : *commonOutput;
    for (const host::CropShape& shape : planned.task.shapes) {
        QString output = name.nameFor(input.path, shape.fileName(), suffix);
        if (name.hasPlaceholders() && host::isStandardStream(output))
            output.prepend(QStringLiteral("./"));
        if (name.hasPlaceholders())
            requireWithin(name.folderFor(input.path), output,
                QStringLiteral("choose another name for the picture or the output"));
        if (hasOwn && areListsConfined)
            requireWithin(QStringLiteral("."), output,
                QStringLiteral("name a file within it, or allow more with --allow-outside"));
        const QString file = host::canonicalPathOf(output);
        if (planned.files.contains(file))
            throw namedTwice(output);
        planned.task.outputs.append(output);
        planned.files.append(file);
    }
}

void OutputClaims::claim(PlannedTask& planned)
{
    for (int i = 0; i < planned.files.size(); ++i) {
        if (claimed.contains(planned.files.at(i)))
            planned.task.failure = namedTwice(planned.task.outputs.at(i));
    }
    for (const QString& file : planned.files)
        claimed.insert(file);
}

bool OutputClaims::areFree(const PlannedTask& planned) const
{
    return std::none_of(planned.files.begin(), planned.files.end(),
        [this](const QString& file) { return claimed.contains(file); });
}

void OutputClaims::release(const QStringList& files)
{
    for (const QString& file : files)
        claimed.remove(file);
}

} // namespace vxroi
