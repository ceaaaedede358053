#include "Resumption.h"

#include "vxroi/records/RecordFields.h"

#include <QFileInfo>

#include <algorithm>

namespace vxroi {

namespace {

using host::CropTask;

bool isSameRequest(const QJsonObject& record, const CropTask& task)
{
    return textIn(record, "version") == QLatin1String(VXROI_VERSION)
        && textIn(record, "request") == task.request.optionsHash
        && textIn(record, "line") == task.request.lineHash;
}

// The state of a file as it appears in records; empty when the file does not exist.
QJsonObject fileObject(const QString& path, host::KnownBy knownBy)
{
    return path.isEmpty() ? QJsonObject() : host::stateOf(path, knownBy).value_or(QJsonObject());
}

// The record in \a object; std::nullopt when it is invalid because something else has edited the file.
std::optional<host::CropRecord> recordFrom(const QJsonObject& object)
{
    try {
        return host::CropRecord::fromJson(object);
    } catch (const host::HostError&) {
        return std::nullopt;
    }
}

} // namespace

Resumption::Resumption(RecordIndex& earlier, const OwnOutputs& ownOutputs, Retry retryFailures,
    const host::CropRules& rules)
    : records(earlier)
    , outputs(ownOutputs)
    , retry(retryFailures)
    , knownBy(rules.knownBy)
    , ifExists(rules.ifExists)
{
}

EarlierResult Resumption::earlierResultOf(const CropTask& task) const
{
    EarlierResult earlier;
    const QVector<IndexedRecord> all = records.recordsOf(task.path);
    const auto* const same = std::find_if(all.begin(), all.end(),
        [&task](const IndexedRecord& record) { return isSameRequest(record.object, task); });
    earlier.hasFailed = same != all.end() && hasFailed(same->object);
    if (same != all.end() && isStillValid(*same, task))
        earlier.record = recordFrom(same->object);
    if (earlier.record) {
        earlier.place = same->place;
        return earlier;
    }
    std::copy_if(task.outputs.begin(), task.outputs.end(), std::back_inserter(earlier.ownOutputs),
        [this](const QString& output) { return outputs.contains(output); });
    return earlier;
}

bool Resumption::isStillValid(const IndexedRecord& indexed, const CropTask& task) const
{
    const QJsonObject& record = indexed.object;
    const QJsonObject error = record.value(QLatin1String("error")).toObject();
    const bool isFromOutside = error.value(QLatin1String("fromOutside")).toBool();
    if (hasFailed(record)
        && (retry == Retry::All || (retry == Retry::FromOutside && isFromOutside)))
        return false;
    if (isFromOutside)
        return true;
    const QVector<QJsonObject> named = outputsOf(record);
    return record.value(QLatin1String("file")).toObject() == fileObject(task.path, knownBy)
        && record.value(QLatin1String("mapFile")).toObject() == fileObject(task.map, knownBy)
        && std::all_of(named.begin(), named.end(),
            [&](const QJsonObject& output) { return isOutputValid(output, indexed.place); });
}

bool Resumption::isOutputValid(const QJsonObject& output, const RecordPlace& record) const
{
    const QString status = textIn(output, "status");
    const QString path = textIn(output, "path");
    if (status == QLatin1String("written"))
        return outputs.isOf(record, path) && QFileInfo::exists(path);
    return status != QLatin1String("skipped")
        || (ifExists == host::IfExists::Skip && QFileInfo::exists(path));
}

} // namespace vxroi
