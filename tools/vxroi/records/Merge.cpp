#include "Merge.h"

#include "RecordFields.h"
#include "vxroi/inputs/Inputs.h"

#include "host/FileName.h"
#include "host/StandardStreams.h"
#include "host/records/Json.h"
#include "vxroi/options/CommonOptions.h"

#include <QJsonDocument>

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

// A path as an entry of a list: as an object where the bare path would be misread.
QByteArray entryOf(const QString& path, char end)
{
    const QByteArray name = host::bytesOfName(path);
    const bool isPlain
        = end == '\0' || !(name.startsWith('{') || name.contains('\n') || name.endsWith('\r'));
    const QJsonObject object { { QStringLiteral("path"), path } };
    return isPlain ? name : QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace

Merge::Merge(const MergeArguments& mergeArguments)
    : arguments(mergeArguments)
    , merged(arguments.output.empty() ? QStringLiteral("-") : pathFrom(arguments.output))
{
    for (const std::string& result : arguments.results) {
        const QString path = pathFrom(result);
        const qint64 damaged = parts.add(path);
        damagedBytes += damaged;
        if (damaged > 0)
            say(QStringLiteral(
                "%1: %2 bytes were damaged by a crash; resume its run, and merge again")
                    .arg(path)
                    .arg(damaged));
    }
    if (!arguments.again.empty())
        again.emplace(pathFrom(arguments.again));
}

ExitCode Merge::run()
{
    forEachInput([this](const Input& input) { add(input); });
    const bool mayReplace = arguments.ifExists == host::IfExists::Overwrite;
    merged.commit(mayReplace);
    if (again)
        again->commit(mayReplace);
    say(summary());
    return missingCount + clashCount + damagedBytes > 0 || !failures.isEmpty()
        ? ExitCode::SomeFailed
        : ExitCode::Success;
}

void Merge::forEachInput(const std::function<void(const Input&)>& visit) const
{
    if (!arguments.from.empty()) {
        ListedInputs inputs(pathFrom(arguments.from), arguments.nulSeparated, {});
        while (const std::optional<Input> input = inputs.waitForNext())
            visit(*input);
    } else if (!arguments.folder.empty()) {
        const QStringList paths = picturesIn(pathFrom(arguments.folder), arguments.recursive);
        for (const QString& path : paths) {
            if (!parts.containsOutput(path))
                visit({ path });
        }
    } else {
        for (const Input& input : parts.inputs())
            visit(input);
    }
}

void Merge::add(const Input& input)
{
    const std::optional<FoundRecord> found = parts.find(input);
    if (!found) {
        ++missingCount;
        say(input.path + QStringLiteral(": has no record"));
        addToRerunList(input);
        return;
    }
    requireSameRun(*found);
    noteOutputs(found->record);
    merged.write(found->line);
    if (found->isDuplicate) {
        ++duplicateCount;
        say(input.path
            + QStringLiteral(": has several records; the one in %1 is taken").arg(found->part));
    }
    if (hasFailed(found->record)) {
        const QJsonObject error = found->record.value(QLatin1String("error")).toObject();
        ++failures[error.value(QLatin1String("code")).toInt()];
        say(QStringLiteral("%1: %2; %3")
                .arg(input.path, textIn(error, "reason"), textIn(error, "remedy")));
        addToRerunList(input);
    } else {
        ++okCount;
    }
}

void Merge::requireSameRun(const FoundRecord& found)
{
    if (first.isEmpty())
        first = found.record;
    for (const char* const key : { "version", "request" }) {
        if (textIn(found.record, key) != textIn(first, key))
            throw HostError(ExitCode::UnreadableInput, found.part,
                QStringLiteral("its record of %1 has the %2 %3, and others have %4")
                    .arg(textIn(found.record, "path"), QLatin1String(key),
                        textIn(found.record, key), textIn(first, key)),
                QStringLiteral("merge parts of one version and one command line; --resume redoes "
                               "what differs"));
    }
}

void Merge::addToRerunList(const Input& input)
{
    if (!again)
        return;
    const char end = arguments.nulSeparated ? '\0' : '\n';
    again->write((input.entry.isEmpty() ? entryOf(input.path, end) : input.entry) + end);
}

// Parts run without knowing each other's outputs, so one may have replaced an output of another.
void Merge::noteOutputs(const QJsonObject& record)
{
    for (const QString& output : writtenOutputsOf(record)) {
        const bool isNew = outputs.insert(RecordIndex::hashOf(output)).second;
        if (isNew)
            continue;
        ++clashCount;
        say(QStringLiteral("%1: is the output of two pictures, %2 and one before it; tell them "
                           "apart with {dir}, {stem} and {ratio}")
                .arg(output, textIn(record, "path")));
    }
}

void Merge::say(const QString& text) const
{
    if (!arguments.quiet)
        host::writeMessage(host::bytesOfName(host::onOneLine(text)).toStdString());
}

QString Merge::summary() const
{
    QStringList codes;
    qint64 failedCount = 0;
    for (auto failure = failures.begin(); failure != failures.end(); ++failure) {
        codes.append(QStringLiteral("%1 with code %2").arg(failure.value()).arg(failure.key()));
        failedCount += failure.value();
    }
    const QString byCode = codes.isEmpty()
        ? QString()
        : QStringLiteral(" (%1)").arg(codes.join(QStringLiteral(", ")));
    return QStringLiteral("%1 ok, %2 failed%3, %4 missing, %5 duplicate")
        .arg(okCount)
        .arg(failedCount)
        .arg(byCode)
        .arg(missingCount)
        .arg(duplicateCount);
}

} // namespace vxroi
