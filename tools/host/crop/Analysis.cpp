#include "Analysis.h"

#include "host/HostError.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace host {

namespace {

// The mean of the maps of as many frames as are enough to see where something moves.
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
            [count](int levels) { return static_cast<uchar>(levels / count); });
        sum += mean.width();
    }
    return mean;
}

HostError notUsable(const QString& map, const HostError& error)
{
    return HostError(error.code(), map,
        QStringLiteral("not usable as a map: %1").arg(error.reason()), error.remedy());
}

} // namespace

VXCrop analysisOf(PictureFile& picture, const VXCropSettings& salience)
{
    if (picture.frameCount() > 1)
        return VXCrop::fromMap(meanMap(picture, salience), picture.orientedSize());
    return VXCrop::fromWorkingImage(picture.readWorkingImage(), picture.orientedSize(), salience);
}

std::unique_ptr<PictureFile> openMap(const QString& path, const ReadingRules& rules)
try {
    ReadingRules ofMap = rules;
    ofMap.areAllFramesRead = false;
    return std::make_unique<PictureFile>(path, ofMap);
} catch (const HostError& error) {
    throw notUsable(path, error);
}

VXCrop analysisFromMap(PictureFile& map, const QSize& picture, QStringList& warnings)
try {
    VXCrop analysis = VXCrop::fromMap(map.readAll(), picture);
    for (const QString& warning : map.warnings())
        warnings.append(QStringLiteral("its map %1: %2").arg(onOneLine(map.path()), warning));
    return analysis;
} catch (const HostError& error) {
    throw notUsable(map.path(), error);
}

} // namespace host
