#include "CropRecord.h"

#include "Json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace host {

namespace {

// Shares have four digits after the point, so that they read well.
double rounded(double share) { return std::round(share * 10000) / 10000; }

QString nameOf(Written written)
{
    switch (written) {
    case Written::File:
        return QStringLiteral("written");
    case Written::Planned:
        return QStringLiteral("planned");
    case Written::Skipped:
        return QStringLiteral("skipped");
    case Written::Nothing:
        break;
    }
    return QString();
}

QJsonObject cropJson(const CropResult& crop)
{
    QJsonObject object {
        { QStringLiteral("shape"), crop.shape },
        { QStringLiteral("decidedBy"), nameOf(crop.choice.decider) },
        { QStringLiteral("oriented"), jsonOf(crop.choice.window) },
        { QStringLiteral("source"), jsonOf(crop.stored) },
        { QStringLiteral("salience"), rounded(crop.salience) },
        { QStringLiteral("centreSalience"), rounded(crop.centreSalience) },
        { QStringLiteral("output"), jsonOf(crop.outputSize) },
    };
    if (crop.written != Written::Nothing) {
        QJsonObject output = jsonOf(crop.outputSize);
        output.insert(QStringLiteral("path"), crop.outputPath);
        output.insert(QStringLiteral("status"), nameOf(crop.written));
        object.insert(QStringLiteral("output"), output);
    }
    return object;
}

QJsonObject failureJson(const HostError& failure)
{
    return { { QStringLiteral("code"), static_cast<int>(failure.code()) },
        { QStringLiteral("reason"), failure.reason() },
        { QStringLiteral("remedy"), failure.remedy() } };
}

} // namespace

QByteArray CropRecord::toJson() const
{
    QJsonObject object { { QStringLiteral("path"), path },
        { QStringLiteral("status"), failure ? QStringLiteral("failed") : QStringLiteral("ok") } };
    if (failure) {
        object.insert(QStringLiteral("error"), failureJson(*failure));
    } else {
        QJsonObject picture { { QStringLiteral("format"), format },
            { QStringLiteral("orientation"), orientation },
            { QStringLiteral("oriented"), jsonOf(oriented) },
            { QStringLiteral("source"), jsonOf(stored) } };
        object.insert(QStringLiteral("picture"), picture);
        QJsonArray list;
        for (const CropResult& crop : crops)
            list.append(cropJson(crop));
        object.insert(QStringLiteral("crops"), list);
    }
    if (!warnings.isEmpty())
        object.insert(QStringLiteral("warnings"), QJsonArray::fromStringList(warnings));
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace host
