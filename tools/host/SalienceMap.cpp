#include "SalienceMap.h"

#include "HostError.h"
#include "ImageMemory.h"

#include <VXRegionOfInterest/VXSalienzMixer.h>

#include <QPainter>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

namespace host {

namespace {

const QSize workingBound(640, 480);
constexpr QRgb midGrey = qRgb(128, 128, 128);

// The order of VXSalienzMethod, which is that of the maps.
struct NamedMethod {
    VXSalienzMethod method;
    const char* name;
};
constexpr std::array<NamedMethod, 5> namedMethods { { { Sobel, "sobel" }, { Gauss, "gauss" },
    { Histogram, "histogram" }, { VeryImportantAreas, "areas" }, { Achanta, "achanta" } } };

// Working images are as large as they should be: the mixer scales nothing.
std::unique_ptr<VXSalienzMixer> mixerFor(
    const QImage& working, const SalienceSettings& settings, const QList<QRect>& areas)
{
    auto mixer = std::make_unique<VXSalienzMixer>(QSize());
    settings.configure(*mixer);
    if (!areas.isEmpty())
        mixer->injectVeryImportantAreas(areas, working.size());
    return mixer;
}

bool isEnabled(const VXSalienzMixer& mixer, VXSalienzMethod method)
{
    return mixer.roiMethod(method) != nullptr && mixer.isMethodEnabled(method);
}

} // namespace

QSize workingSizeOf(const QSize& picture)
{
    return picture.scaled(workingBound, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

QImage workingImageOf(const QImage& picture)
{
    QImage scaled = held(picture.scaled(
        workingSizeOf(picture.size()), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    if (!scaled.hasAlphaChannel())
        return held(std::move(scaled).convertToFormat(QImage::Format_ARGB32));
    QImage working = held(QImage(scaled.size(), QImage::Format_ARGB32));
    working.fill(midGrey);
    QPainter(&working).drawImage(0, 0, scaled);
    return working;
}

QVector<QRect> areasWithin(const QSize& picture, const QVector<QRect>& areas)
{
    QVector<QRect> within;
    for (const QRect& area : areas) {
        const QRect part = area & QRect(QPoint(), picture);
        if (part.isEmpty())
            throw HostError(ExitCode::Usage,
                QStringLiteral("--keep %1,%2,%3,%4")
                    .arg(area.x())
                    .arg(area.y())
                    .arg(area.width())
                    .arg(area.height()),
                QStringLiteral("lies outside the picture of %1 x %2 pixels")
                    .arg(picture.width())
                    .arg(picture.height()),
                QStringLiteral("give left, top, width and height in pixels"));
        within.append(part);
    }
    return within;
}

QList<QRect> workingAreas(const QVector<QRect>& areas, const QSize& picture, const QSize& working)
{
    QList<QRect> scaledAreas;
    for (const QRect& area : areas) {
        const auto along = [](qint64 position, int to, int from) {
            return static_cast<int>(position * to / from);
        };
        const QPoint first(along(area.left(), working.width(), picture.width()),
            along(area.top(), working.height(), picture.height()));
        const QPoint last(along(area.right(), working.width(), picture.width()),
            along(area.bottom(), working.height(), picture.height()));
        scaledAreas.append(QRect(first, last));
    }
    return scaledAreas;
}

QImage stretched(const QImage& map)
{
    QImage levels = held(map.convertToFormat(QImage::Format_Grayscale8));
    int least = 255;
    int most = 0;
    for (int y = 0; y < levels.height(); ++y) {
        const uchar* const row = levels.constScanLine(y);
        const auto [rowLeast, rowMost] = std::minmax_element(row, row + levels.width());
        least = std::min<int>(least, *rowLeast);
        most = std::max<int>(most, *rowMost);
    }
    const int range = std::max(most - least, 1);
    for (int y = 0; y < levels.height(); ++y) {
        uchar* const row = levels.scanLine(y);
        std::transform(row, row + levels.width(), row,
            [=](uchar level) { return static_cast<uchar>((level - least) * 255 / range); });
    }
    levels.setText(QStringLiteral("Comment"),
        QStringLiteral("Levels %1 to %2, stretched to 0 to 255").arg(least).arg(most));
    return levels;
}

QImage salienceMapOf(
    const QImage& working, const SalienceSettings& settings, const QList<QRect>& areas)
{
    const auto mixer = mixerFor(working, settings, areas);
    const bool isAnyEnabled = std::any_of(std::begin(namedMethods), std::end(namedMethods),
        [&](const NamedMethod& named) { return isEnabled(*mixer, named.method); });
    if (isAnyEnabled)
        return mixer->analyze(working);
    QImage black = held(QImage(working.size(), QImage::Format_ARGB32));
    black.fill(Qt::black);
    return black;
}

QVector<MethodMap> methodMapsOf(
    const QImage& working, const SalienceSettings& settings, const QList<QRect>& areas)
{
    const auto mixer = mixerFor(working, settings, areas);
    const QList<QImage> maps = mixer->gatherResults(working);
    QVector<MethodMap> namedMaps;
    for (const NamedMethod& named : namedMethods) {
        if (isEnabled(*mixer, named.method))
            namedMaps.append({ QLatin1String(named.name), maps.at(namedMaps.size()) });
    }
    return namedMaps;
}

} // namespace host
