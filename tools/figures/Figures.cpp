#include "Figures.h"

#include "host/crop/Overlay.h"
#include "host/crop/SalienceMap.h"
#include "host/crop/SalienceSettings.h"
#include "host/records/CropWindow.h"
#include "scenes/SampleScenes.h"
#include "vxroi/options/SalienceOptions.h"

namespace figures {

namespace {

constexpr int tileWidth = 240;
const QSize square(1, 1);

QImage tileOf(const QImage& image)
{
    return image.scaledToWidth(tileWidth, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_RGB32);
}

QImage mapTileOf(const QImage& map) { return tileOf(host::stretched(map)); }

Figure readmeOverlay()
{
    const QImage scene = scenes::drawBalloon();
    const VXCrop crop(scene);
    return { QStringLiteral("overlay"),
        host::drawOverlay(scene, crop.map(), crop.window(square).window) };
}

// A scene, its maps by the default method and by the mixer's methods, their blend, and the two crops.
QVector<Figure> galleryOf(const QString& name, QImage scene)
{
    const VXCrop photo(scene);
    const VXCrop library(scene, VXCropSettings::library());
    const auto cropTile
        = [&](const VXCrop& crop) { return tileOf(scene.copy(crop.window(square).window)); };
    QVector<Figure> tiles { { QStringLiteral("picture"), tileOf(scene) },
        { QStringLiteral("background"), mapTileOf(photo.map()) },
        { QStringLiteral("crop"), cropTile(photo) } };
    for (const VXCropMap& single : library.methodMaps())
        tiles.append({ single.method, mapTileOf(single.map) });
    tiles.append({ QStringLiteral("blend"), mapTileOf(library.map()) });
    tiles.append({ QStringLiteral("blend-crop"), cropTile(library) });
    for (Figure& tile : tiles)
        tile.name = QStringLiteral("gallery-%1-%2").arg(name, tile.name);
    return tiles;
}

// The map of the histogram method alone, as the mixer takes it, with one setting changed.
Figure tuned(const char* assignment)
{
    VXCropSettings settings = host::withoutMethods();
    settings.histogram = 1;
    if (*assignment != '\0')
        vxroi::tune(settings, QLatin1String(assignment));
    const QString name = *assignment == '\0'
        ? QStringLiteral("default")
        : QString::fromLatin1(assignment).replace(QLatin1Char('='), QLatin1Char('-'));
    return { QStringLiteral("tuning-") + name,
        mapTileOf(VXCrop(scenes::drawSailboat(), settings).map()) };
}

} // namespace

QVector<Figure> drawFigures()
{
    QVector<Figure> all { readmeOverlay() };
    all += galleryOf(QStringLiteral("balloon"), scenes::drawBalloon());
    all += galleryOf(QStringLiteral("poppy"), scenes::drawPoppy());
    all += galleryOf(QStringLiteral("sailboat"), scenes::drawSailboat());
    for (const char* const assignment : { "", "bins1=4", "bins2=4", "threshold=0.2", "threshold=3",
             "columns=40", "rows=30", "min-width=0.1", "min-height=0.9" })
        all.append(tuned(assignment));
    return all;
}

} // namespace figures
