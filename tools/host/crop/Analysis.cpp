#include "Analysis.h"

#include "MapStore.h"
#include "SalienceSettings.h"
#include "host/HostError.h"

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

namespace host {

namespace {

// The mean of the maps of up to ten frames, evenly spread: enough to show where something moves.
QImage meanMap(PictureFile& picture, const VXCropSettings& salience)
{
    constexpr int mostFrames = 10;
    const int count = std::min(picture.frameCount(), mostFrames);
    QImage mean;
    std::vector<int> sums;
    for (int i = 0; i < count; ++i) {
        const int frame = static_cast<int>(qint64 { i } * picture.frameCount() / count);
        mean = VXCrop::fromWorkingImage(
            picture.readWorkingImage(frame), picture.orientedSize(), salience)
                   .map();
        sums.resize(
            static_cast<std::size_t>(mean.width()) * static_cast<std::size_t>(mean.height()));
        auto sum = sums.begin();
        for (int y = 0; y < mean.height(); ++y) {
            const uchar* const row = mean.constScanLine(y);
            sum = std::transform(row, row + mean.width(), sum, sum, std::plus<>());
        }
    }
    auto sum = sums.begin();
    for (int y = 0; y < mean.height(); ++y) {
        std::transform(sum, sum + mean.width(), mean.scanLine(y),
            [count](int total) { return static_cast<uchar>(total / count); });
        sum += mean.width();
    }
    return mean;
}

HostError notUsable(const QString& map, const HostError& error)
{
    return HostError(error.code(), map,
        QStringLiteral("not usable as a map: %1").arg(error.reason()), error.remedy());
}

std::unique_ptr<PictureFile> openMap(const QString& path, const ReadingRules& rules)
try {
    if (path.isEmpty())
        return nullptr;
    ReadingRules mapRules = rules;
    mapRules.areAllFramesRead = false;
    return std::make_unique<PictureFile>(path, mapRules);
} catch (const HostError& error) {
    throw notUsable(path, error);
}

} // namespace

Analysis::Analysis(const QString& path, AnalysisRules analysisRules, const QString& mapPath)
    : rules(std::move(analysisRules))
    , file(path, rules.reading)
    , map(openMap(mapPath, rules.reading))
{
}

qint64 Analysis::countedPixels() const
{
    return std::max(file.countedPixels(), map ? map->countedPixels() : 0);
}

VXCrop Analysis::run() { return map ? readMap() : compute(); }

VXCrop Analysis::runWithStore(const QJsonObject& state)
{
    if (map || !rules.maps)
        return run();
    const MapKey key { file.path(), state, textOf(rules.salience), file.frameCount() };
    const QImage stored = rules.maps->find(key, file.orientedSize());
    if (!stored.isNull())
        return VXCrop::fromMap(stored, file.orientedSize());
    const QStringList warningsBefore = file.warnings();
    VXCrop computed = compute();
    if (file.warnings() == warningsBefore)
        rules.maps->keep(key, computed.map());
    return computed;
}

QStringList Analysis::warnings() const
{
    QStringList warnings;
    if (map) {
        for (const QString& warning : map->warnings())
            warnings.append(QStringLiteral("its map %1: %2").arg(onOneLine(map->path()), warning));
    }
    return warnings + file.warnings();
}

VXCrop Analysis::compute()
{
    if (file.frameCount() > 1)
        return VXCrop::fromMap(meanMap(file, rules.salience), file.orientedSize());
    return VXCrop::fromWorkingImage(file.readWorkingImage(), file.orientedSize(), rules.salience);
}

VXCrop Analysis::readMap()
try {
    return VXCrop::fromMap(map->readAll(), file.orientedSize());
} catch (const HostError& error) {
    throw notUsable(map->path(), error);
}

} // namespace host
