#include "Figures.h"

#include "host/CropWindow.h"
#include "host/Overlay.h"
#include "host/SalienceMap.h"
#include "scenes/SampleScenes.h"

namespace figures {

namespace {

constexpr int tileWidth = 240;
constexpr host::AspectRatio square { 1, 1 };

QImage tileOf(const QImage& image)
{
    return image.scaledToWidth(tileWidth, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_RGB32);
}

QImage mapTileOf(const QImage& map) { return tileOf(host::stretched(map)); }

QRect squareOf(const QImage& map, const QImage& scene)
{
    return host::chooseWindow(map, scene.size(), square).window;
}

Figure readmeOverlay()
{
    const QImage scene = scenes::drawBalloon();
    const QImage map = host::salienceMapOf(
        host::workingImageOf(scene), host::SalienceSettings::preset(QStringLiteral("photo")));
    return { QStringLiteral("overlay"), host::drawOverlay(scene, map, squareOf(map, scene)) };
}

// A scene, its four maps, their blend by the mixer's own weights and the crop that it gives.
QVector<Figure> galleryOf(const QString& name, QImage scene)
{
    const auto settings = host::SalienceSettings::preset(QStringLiteral("library"));
    const QImage working = host::workingImageOf(scene);
    const QImage blend = host::salienceMapOf(working, settings);
    QVector<Figure> tiles { { QStringLiteral("picture"), tileOf(working) } };
    for (const host::MethodMap& single : host::methodMapsOf(working, settings))
        tiles.append({ single.method, mapTileOf(single.map) });
    tiles.append({ QStringLiteral("blend"), mapTileOf(blend) });
    tiles.append(
        { QStringLiteral("crop"), tileOf(host::viewOf(scene, squareOf(blend, scene)).copy()) });
    for (Figure& tile : tiles)
        tile.name = QStringLiteral("gallery-%1-%2").arg(name, tile.name);
    return tiles;
}

// The map of the histogram method alone, as the mixer takes it, with one setting changed.
Figure tuned(const char* assignment)
{
    host::SalienceSettings settings { { 0, 0, 1, 0 }, {} };
    if (*assignment != '\0')
        settings.tune(QLatin1String(assignment));
    const QImage working = host::workingImageOf(scenes::drawSailboat());
    const QString name = *assignment == '\0'
        ? QStringLiteral("default")
        : QString::fromLatin1(assignment).replace(QLatin1Char('='), QLatin1Char('-'));
    return { QStringLiteral("tuning-") + name,
        mapTileOf(host::methodMapsOf(working, settings).first().map) };
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
