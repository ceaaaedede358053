#include "CropRecord.h"

#include "Json.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cmath>

namespace host {

namespace {

QJsonObject pointJson(const QPointF& point)
{
    return { { QStringLiteral("x"), roundedShare(point.x()) },
        { QStringLiteral("y"), roundedShare(point.y()) } };
}

// Six digits distinguish all pixels of pictures that are up to 100000 pixels wide.
QJsonObject relativeJson(const QRect& window, const QSize& picture)
{
    const auto share
        = [](double part, int whole) { return std::round(part / whole * 1000000) / 1000000; };
    return { { QStringLiteral("x"), share(window.x(), picture.width()) },
        { QStringLiteral("y"), share(window.y(), picture.height()) },
        { QStringLiteral("width"), share(window.width(), picture.width()) },
        { QStringLiteral("height"), share(window.height(), picture.height()) } };
}

QJsonObject windowJson(const CropResult& crop, const QSize& picture)
{
    return {
        { QStringLiteral("decidedBy"), host::nameOf(crop.chosen.reason) },
        { QStringLiteral("oriented"), jsonOf(crop.chosen.window) },
        { QStringLiteral("relative"), relativeJson(crop.chosen.window, picture) },
        { QStringLiteral("source"), jsonOf(crop.stored) },
        { QStringLiteral("focus"), pointJson(crop.chosen.focus) },
        { QStringLiteral("salience"), roundedShare(crop.chosen.salience) },
        { QStringLiteral("centreSalience"), roundedShare(crop.chosen.centreSalience) },
    };
}

// Neither the window nor the size of an output that already existed is known.
QJsonObject cropJson(const CropResult& crop, const QSize& picture)
{
    const bool isSkipped = crop.state == OutputState::Skipped;
    QJsonObject object = isSkipped ? QJsonObject() : windowJson(crop, picture);
    QJsonObject output = isSkipped ? QJsonObject() : jsonOf(crop.outputSize);
    if (crop.state != OutputState::None) {
        output.insert(QStringLiteral("path"), crop.outputPath);
        output.insert(QStringLiteral("status"), nameOf(crop.state));
    }
    object.insert(QStringLiteral("shape"), crop.shape);
    object.insert(QStringLiteral("output"), output);
    return object;
}

QJsonObject failureJson(const HostError& failure)
{
    QJsonObject object { { QStringLiteral("code"), static_cast<int>(failure.code()) },
        { QStringLiteral("reason"), failure.reason() },
        { QStringLiteral("remedy"), failure.remedy() } };
    if (failure.isRetryable())
        object.insert(QStringLiteral("fromOutside"), true);
    return object;
}

} // namespace

QString nameOf(OutputState state)
{
    switch (state) {
    case OutputState::Written:
        return QStringLiteral("written");
    case OutputState::Planned:
        return QStringLiteral("planned");
    case OutputState::Skipped:
        return QStringLiteral("skipped");
    case OutputState::None:
        break;
    }
    return QString();
}

double roundedShare(double share) { return std::round(share * 10000) / 10000; }

QStringList CropRecord::writtenOutputs() const
{
    QStringList outputs;
    for (const CropResult& crop : crops) {
        if (crop.state == OutputState::Written)
            outputs.append(crop.outputPath);
    }
    return outputs;
}

QByteArray CropRecord::toJson() const
{
    QJsonObject object { { QStringLiteral("path"), path }, { QStringLiteral("version"), version },
        { QStringLiteral("settings"), settings },
        { QStringLiteral("request"), request.optionsHash },
        { QStringLiteral("status"), failure ? QStringLiteral("failed") : QStringLiteral("ok") } };
    if (!request.lineHash.isEmpty())
        object.insert(QStringLiteral("line"), request.lineHash);
    if (file)
        object.insert(QStringLiteral("file"), *file);
    if (mapFile)
        object.insert(QStringLiteral("mapFile"), *mapFile);
    if (failure) {
        object.insert(QStringLiteral("error"), failureJson(*failure));
    } else {
        QJsonObject picture { { QStringLiteral("format"), format },
            { QStringLiteral("orientation"), orientation },
            { QStringLiteral("oriented"), jsonOf(oriented) },
            { QStringLiteral("source"), jsonOf(stored) } };
        if (frames > 1)
            picture.insert(QStringLiteral("frames"), frames);
        object.insert(QStringLiteral("picture"), picture);
        if (faces)
            object.insert(QStringLiteral("faces"), jsonOf(*faces));
        QJsonArray list;
        for (const CropResult& crop : crops)
            list.append(cropJson(crop, oriented));
        object.insert(QStringLiteral("crops"), list);
    }
    if (!warnings.isEmpty())
        object.insert(QStringLiteral("warnings"), QJsonArray::fromStringList(warnings));
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace host
