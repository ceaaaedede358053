#include "RecordFields.h"

#include <QJsonArray>

namespace vxroi {

bool isRecord(const QJsonObject& object)
{
    return object.value(QLatin1String("path")).isString()
        && object.value(QLatin1String("status")).isString();
}

QString textIn(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toString();
}

bool hasFailed(const QJsonObject& record)
{
    return textIn(record, "status") != QLatin1String("ok");
}

QVector<QJsonObject> outputsOf(const QJsonObject& record)
{
    QVector<QJsonObject> outputs;
    const QJsonArray crops = record.value(QLatin1String("crops")).toArray();
    for (const QJsonValue& crop : crops)
        outputs.append(crop.toObject().value(QLatin1String("output")).toObject());
    return outputs;
}

QStringList writtenOutputsOf(const QJsonObject& record)
{
    QStringList written;
    for (const QJsonObject& output : outputsOf(record)) {
        if (textIn(output, "status") == QLatin1String("written"))
            written.append(textIn(output, "path"));
    }
    return written;
}

} // namespace vxroi
