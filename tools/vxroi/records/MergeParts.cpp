#include "MergeParts.h"

#include "RecordFields.h"
#include "host/HostError.h"
#include "host/records/Json.h"

#include <QFileInfo>

#include <algorithm>

namespace vxroi {

using host::ExitCode;
using host::HostError;

qint64 MergeParts::add(const QString& path)
{
    Part& part = parts.emplace_back();
    part.file.setFileName(path);
    const QFileInfo info(part.file);
    const bool isOther = info.exists() && !info.isFile();
    if (isOther || !part.file.open(QIODevice::ReadOnly))
        throw HostError(ExitCode::MissingInput, path,
            isOther ? QStringLiteral("is not a file") : part.file.errorString(),
            QStringLiteral("name files that vxroi batch has written"));
    part.records.emplace(part.file);
    return part.records->damagedBytes();
}

std::optional<FoundRecord> MergeParts::find(const Input& input) const
{
    std::optional<FoundRecord> best;
    for (const Part& part : parts) {
        const QVector<IndexedRecord> records = part.records->recordsOf(input.path);
        std::for_each(records.rbegin(), records.rend(), [&](const IndexedRecord& record) {
            if (textIn(record.object, "line") != input.request)
                return;
            const bool isBetter = !best || hasFailed(best->record) || !hasFailed(record.object);
            const bool isDuplicate = best.has_value();
            if (isBetter)
                best = FoundRecord { record.line, record.object, part.file.fileName() };
            best->isDuplicate = isDuplicate;
        });
    }
    return best;
}

QVector<Input> MergeParts::inputs() const
{
    QVector<Input> all;
    for (const Part& part : parts) {
        for (const RecordPlace& place : part.records->places()) {
            const QJsonObject record = host::parseObject(part.records->lineAt(place)).object;
            Input input { textIn(record, "path") };
            input.request = textIn(record, "line");
            all.append(input);
        }
    }
    const auto isBefore = [](const Input& one, const Input& other) {
        return one.path != other.path ? one.path < other.path : one.request < other.request;
    };
    const auto isSame = [](const Input& one, const Input& other) {
        return one.path == other.path && one.request == other.request;
    };
    std::stable_sort(all.begin(), all.end(), isBefore);
    all.erase(std::unique(all.begin(), all.end(), isSame), all.end());
    return all;
}

bool MergeParts::containsOutput(const QString& path) const
{
    return std::any_of(parts.begin(), parts.end(),
        [&path](const Part& part) { return part.records->containsOutput(path); });
}

} // namespace vxroi
