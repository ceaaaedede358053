#include "MapStore.h"

#include "host/HostError.h"
#include "host/files/OutputFile.h"
#include "host/files/OutputName.h"
#include "host/picture/ImageMemory.h"
#include "host/picture/PictureFile.h"
#include "host/picture/PictureWriter.h"
#include "host/records/Json.h"

#include <VXCrop/VXCrop.h>

#include <QFileInfo>

#include <utility>

namespace host {

MapStore::MapStore(QString mapFolder)
    : folder(std::move(mapFolder))
{
    createFolder(folder);
}

QImage MapStore::find(const MapKey& key, const QSize& picture) const
try {
    const QString name = fileNameOf(key);
    if (!QFileInfo::exists(name))
        return {};
    const QImage map = PictureFile(name, {}).readAll();
    return map.size() == VXCrop::workingSize(picture) ? map : QImage();
} catch (const HostError&) {
    return {};
}

void MapStore::keep(const MapKey& key, const QImage& map) const
{
    const QString name = fileNameOf(key);
    createFolder(QFileInfo(name).path());
    PictureWriter(notNull(map.convertToFormat(QImage::Format_Grayscale8)), name).commit(true);
}

// The first two digits of the hash name a subfolder, because some file systems are slow with many files in one folder.
QString MapStore::fileNameOf(const MapKey& key) const
{
    QJsonObject whole { { QStringLiteral("file"), key.state },
        { QStringLiteral("settings"), key.settings }, { QStringLiteral("frames"), key.frameCount },
        { QStringLiteral("version"), QStringLiteral(VXROI_VERSION) } };
    if (!key.state.contains(QLatin1String("sha256")))
        whole.insert(QStringLiteral("path"), canonicalPathOf(key.path));
    const QString hash = hashOf(whole);
    return QStringLiteral("%1/%2/%3.png").arg(folder, hash.left(2), hash.mid(2));
}

} // namespace host
