#include "MapStore.h"

#include "SalienceSettings.h"
#include "host/HostError.h"
#include "host/files/OutputName.h"
#include "host/picture/ImageMemory.h"
#include "host/picture/PictureWriter.h"
#include "host/records/Json.h"

#include <QFileInfo>

#include <utility>

namespace host {

namespace {

// A file that is damaged, or of something else, is as good as none.
QImage readMap(const QString& path, const QSize& picture)
try {
    if (!QFileInfo::exists(path))
        return {};
    const QImage map = openMap(path, {})->readAll();
    return map.size() == VXCrop::workingSize(picture) ? map : QImage();
} catch (const HostError&) {
    return {};
}

} // namespace

MapStore::MapStore(QString mapFolder)
    : folder(std::move(mapFolder))
{
    createFolder(folder);
}

VXCrop MapStore::analysisOf(
    PictureFile& picture, const std::optional<QJsonObject>& state, const AnalysisRules& rules) const
{
    if (!state)
        return host::analysisOf(picture, rules.salience);
    const QString name
        = nameOf(picture.path(), *state, textOf(rules.salience), picture.frameCount());
    const QImage kept = readMap(name, picture.orientedSize());
    if (!kept.isNull())
        return VXCrop::fromMap(kept, picture.orientedSize());
    const QStringList warningsBefore = picture.warnings();
    VXCrop analysis = host::analysisOf(picture, rules.salience);
    if (picture.warnings() == warningsBefore) {
        createFolder(QFileInfo(name).path());
        const QImage levels = held(analysis.map().convertToFormat(QImage::Format_Grayscale8));
        PictureWriter(levels, name).commit(true);
    }
    return analysis;
}

QImage MapStore::find(const QString& picture, const QJsonObject& state, const QString& settings,
    int frameCount, const QSize& size) const
{
    return readMap(nameOf(picture, state, settings, frameCount), size);
}

// The first two digits are a folder, because some file systems are slow with many files in one.
QString MapStore::nameOf(
    const QString& picture, const QJsonObject& state, const QString& settings, int frameCount) const
{
    QJsonObject whole { { QStringLiteral("file"), state }, { QStringLiteral("settings"), settings },
        { QStringLiteral("frames"), frameCount },
        { QStringLiteral("version"), QStringLiteral(VXROI_VERSION) } };
    if (!state.contains(QLatin1String("sha256")))
        whole.insert(QStringLiteral("path"), canonicalPathOf(picture));
    const QString hash = hashOf(whole);
    return QStringLiteral("%1/%2/%3.png").arg(folder, hash.left(2), hash.mid(2));
}

} // namespace host
