#include "CropRecord.h"

#include "host/FileName.h"

#include <QJsonArray>

namespace host {

namespace {

[[noreturn]] void refuse(const QString& reason)
{
    throw HostError(ExitCode::UnreadableInput, QStringLiteral("record"), reason,
        QStringLiteral("give a record that vxroi has written"));
}

[[noreturn]] void refuseKey(const char* key, const QString& reason)
{
    refuse(QStringLiteral("\"%1\" %2").arg(QLatin1String(key), reason));
}

// The next three functions return an empty text, object or array when the key is missing.
QString textIn(const QJsonObject& object, const char* key)
{
    const QJsonValue value = object.value(QLatin1String(key));
    if (!value.isUndefined() && !value.isString())
        refuseKey(key, QStringLiteral("is not a text"));
    return value.toString();
}

QJsonObject objectIn(const QJsonObject& object, const char* key)
{
    const QJsonValue value = object.value(QLatin1String(key));
    if (!value.isUndefined() && !value.isObject())
        refuseKey(key, QStringLiteral("is not an object"));
    return value.toObject();
}

QJsonArray arrayIn(const QJsonObject& object, const char* key)
{
    const QJsonValue value = object.value(QLatin1String(key));
    if (!value.isUndefined() && !value.isArray())
        refuseKey(key, QStringLiteral("is not an array"));
    return value.toArray();
}

QString neededTextIn(const QJsonObject& object, const char* key)
{
    QString text = textIn(object, key);
    if (text.isEmpty())
        refuseKey(key, QStringLiteral("is missing"));
    return text;
}

int countIn(const QJsonObject& object, const char* key, int least)
{
    const int count = object.value(QLatin1String(key)).toInt(least - 1);
    if (count < least)
        refuseKey(key, QStringLiteral("is not a whole number of at least %1").arg(least));
    return count;
}

double shareIn(const QJsonObject& object, const char* key)
{
    const double share = object.value(QLatin1String(key)).toDouble(-1);
    if (share < 0 || share > 1)
        refuseKey(key, QStringLiteral("is not a number from 0 to 1"));
    return share;
}

QSize sizeFrom(const QJsonObject& object)
{
    return object.isEmpty() ? QSize()
                            : QSize(countIn(object, "width", 1), countIn(object, "height", 1));
}

QRect windowFrom(const QJsonObject& object, const QSize& picture)
{
    const QPoint corner(countIn(object, "x", 0), countIn(object, "y", 0));
    const QSize size(countIn(object, "width", 1), countIn(object, "height", 1));
    const QSize room = picture - size;
    if (corner.x() > room.width() || corner.y() > room.height())
        refuse(QStringLiteral("a crop is not within the picture"));
    return { corner, size };
}

OutputState stateCalled(const QString& name)
{
    for (const OutputState state :
        { OutputState::None, OutputState::Written, OutputState::Planned, OutputState::Skipped }) {
        if (nameOf(state) == name)
            return state;
    }
    refuse(QStringLiteral("the status \"%1\" of an output is not known").arg(name));
}

void fillWindow(CropResult& crop, const QJsonObject& object, const CropRecord& record)
{
    const auto reason = reasonCalled(textIn(object, "decidedBy"));
    if (!reason)
        refuseKey("decidedBy", QStringLiteral("is not the name of a reason"));
    const QJsonObject focus = objectIn(object, "focus");
    crop.chosen = { windowFrom(objectIn(object, "oriented"), record.oriented),
        QPointF(shareIn(focus, "x"), shareIn(focus, "y")), *reason, shareIn(object, "salience"),
        shareIn(object, "centreSalience") };
    crop.stored = windowFrom(objectIn(object, "source"), record.stored);
}

CropResult cropFrom(const QJsonObject& object, const CropRecord& record)
{
    CropResult crop;
    crop.shape = neededTextIn(object, "shape");
    const QJsonObject output = objectIn(object, "output");
    crop.outputPath = textIn(output, "path");
    crop.state = stateCalled(textIn(output, "status"));
    const bool isLeftOut = crop.state == OutputState::Skipped;
    if (!isLeftOut || !output.value(QLatin1String("width")).isUndefined())
        crop.outputSize = sizeFrom(output);
    if (!isLeftOut || object.contains(QLatin1String("oriented")))
        fillWindow(crop, object, record);
    return crop;
}

void fillPicture(CropRecord& record, const QJsonObject& picture)
{
    record.format = textIn(picture, "format");
    record.oriented = sizeFrom(objectIn(picture, "oriented"));
    record.stored = sizeFrom(objectIn(picture, "source"));
    if (picture.contains(QLatin1String("orientation")))
        record.orientation = countIn(picture, "orientation", 1);
    if (picture.contains(QLatin1String("frames")))
        record.frames = countIn(picture, "frames", 1);
}

void fillCrops(CropRecord& record, const QJsonObject& object)
{
    fillPicture(record, objectIn(object, "picture"));
    const QJsonValue faces = object.value(QLatin1String("faces"));
    record.faces = facesFrom(faces);
    if (!faces.isUndefined() && !record.faces)
        refuseKey("faces", faultOfFaces());
    if (!object.contains(QLatin1String("crops")))
        refuseKey("crops", QStringLiteral("is missing"));
    const QJsonArray crops = arrayIn(object, "crops");
    for (const QJsonValue& crop : crops)
        record.crops.append(cropFrom(crop.toObject(), record));
}

HostError failureFrom(const QJsonObject& error, const QString& path)
{
    const auto code = static_cast<ExitCode>(countIn(error, "code", 1));
    const QString reason = neededTextIn(error, "reason");
    const QString remedy = neededTextIn(error, "remedy");
    const bool isRetryable = error.value(QLatin1String("fromOutside")).toBool();
    return isRetryable && code == ExitCode::UnreadableInput
        ? retryableReadError(path, reason, remedy)
        : HostError(code, path, reason, remedy);
}

std::optional<QJsonObject> stateIn(const QJsonObject& object, const char* key)
{
    const QJsonObject state = objectIn(object, key);
    return state.isEmpty() ? std::nullopt : std::make_optional(state);
}

} // namespace

CropRecord CropRecord::fromJson(const QJsonObject& object)
{
    CropRecord record;
    record.path = neededTextIn(object, "path");
    if (!mayBeName(record.path))
        refuseKey("path", QStringLiteral("contains characters that no file name has"));
    record.version = textIn(object, "version");
    record.settings = textIn(object, "settings");
    record.request = { textIn(object, "request"), textIn(object, "line") };
    record.file = stateIn(object, "file");
    record.mapFile = stateIn(object, "mapFile");
    const QJsonArray warnings = arrayIn(object, "warnings");
    for (const QJsonValue& warning : warnings)
        record.warnings.append(warning.toString());
    const QString status = neededTextIn(object, "status");
    if (status == QLatin1String("failed"))
        record.failure = failureFrom(objectIn(object, "error"), record.path);
    else if (status == QLatin1String("ok"))
        fillCrops(record, object);
    else
        refuseKey("status", QStringLiteral("is neither ok nor failed"));
    return record;
}

} // namespace host
