#include "Merge.h"

#include "vxroi/inputs/Inputs.h"

#include "host/FileName.h"
#include "host/StandardStreams.h"
#include "host/records/Json.h"
#include "vxroi/options/CommonOptions.h"

#include <QFileInfo>
#include <QJsonDocument>

#include <algorithm>

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
        Part& part = parts.emplace_back();
        part.file.setFileName(pathFrom(result));
        const QFileInfo info(part.file);
        const bool isOther = info.exists() && !info.isFile();
        if (isOther || !part.file.open(QIODevice::ReadOnly))
            throw HostError(ExitCode::MissingInput, part.file.fileName(),
                isOther ? QStringLiteral("is not a file") : part.file.errorString(),
                QStringLiteral("name files that vxroi batch has written"));
        part.records.emplace(part.file);
        const qint64 damaged = part.records->damagedBytes();
        damagedBytes += damaged;
        if (damaged > 0)
            say(QStringLiteral(
                "%1: %2 bytes were damaged by a crash; resume its run, and merge again")
                    .arg(part.file.fileName())
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
            if (!isOutput(path))
                visit({ path });
        }
    } else {
        for (const Input& input : recordedInputs())
            visit(input);
    }
}

// Without a list or a folder, the inputs are those of the records, in the order of picturesIn().
QVector<Input> Merge::recordedInputs() const
{
    QVector<Input> inputs;
    for (const Part& part : parts) {
        for (const RecordPlace& place : part.records->places()) {
            const QJsonObject record = host::parseObject(part.records->lineAt(place)).object;
            Input input { textIn(record, "path") };
            input.request = textIn(record, "line");
            inputs.append(input);
        }
    }
    const auto isBefore = [](const Input& one, const Input& other) {
        return one.path != other.path ? one.path < other.path : one.request < other.request;
    };
    const auto isSame = [](const Input& one, const Input& other) {
        return one.path == other.path && one.request == other.request;
    };
    std::stable_sort(inputs.begin(), inputs.end(), isBefore);
    inputs.erase(std::unique(inputs.begin(), inputs.end(), isSame), inputs.end());
    return inputs;
}

bool Merge::isOutput(const QString& path) const
{
    return std::any_of(parts.begin(), parts.end(),
        [&path](const Part& part) { return part.records->containsOutput(path); });
}

void Merge::add(const Input& input)
{
    const std::optional<Found> found = find(input);
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
            + QStringLiteral(": has several records; that of %1 is taken").arg(found->part));
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

// Of several records, a successful one is preferred to a failed one, and a later part to an earlier one.
std::optional<Merge::Found> Merge::find(const Input& input) const
{
    std::optional<Found> best;
    for (const Part& part : parts) {
        const QVector<IndexedRecord> records = part.records->recordsOf(input.path);
        std::for_each(records.rbegin(), records.rend(), [&](const IndexedRecord& record) {
            if (textIn(record.object, "line") != input.request)
                return;
            const bool isBetter = !best || hasFailed(best->record) || !hasFailed(record.object);
            const bool isDuplicate = best.has_value();
            if (isBetter)
                best = Found { record.line, record.object, part.file.fileName() };
            best->isDuplicate = isDuplicate;
        });
    }
    return best;
}

void Merge::requireSameRun(const Found& found)
{
    if (first.isEmpty())
        first = found.record;
    for (const char* const key : { "version", "request" }) {
        if (textIn(found.record, key) != textIn(first, key))
            throw HostError(ExitCode::UnreadableInput, found.part,
                QStringLiteral("its record of %1 has the %2 %3, and others have %4")
                    .arg(textIn(found.record, "path"), QLatin1String(key),
                        textIn(found.record, key), textIn(first, key)),
                QStringLiteral("merge parts of one version and one command line; --resume does "
                               "anew what differs"));
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
        host::writeError("vxroi: " + host::bytesOfName(host::onOneLine(text)).toStdString() + '\n');
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
