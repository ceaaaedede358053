#include "ReportEntry.h"

#include "host/CropWindow.h"
#include "host/ImageMemory.h"

#include <algorithm>
#include <cstdlib>

namespace vxroi {

using host::PictureFile;

namespace {

constexpr int thumbnailPixels = 320; ///< on the longer side, at most
constexpr int mapPixels = 160;

QImage atMost(const QImage& image, int pixels)
{
    if (std::max(image.width(), image.height()) <= pixels)
        return image;
    return host::held(image.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

QImage thumbnailOf(PictureFile& picture)
{
    return atMost(picture.readWorkingImage(), thumbnailPixels);
}

} // namespace

ReportEntry entryOf(host::Cropper& cropper, const host::CropTask& task, bool hasMethods)
{
    ReportEntry entry;
    entry.record = cropper.crop(task, [&](PictureFile& picture, const VXCrop& analysis) {
        entry.thumbnail = thumbnailOf(picture);
        entry.map = atMost(analysis.map(), mapPixels);
        if (!hasMethods)
            return;
        for (const VXCropMap& single : analysis.methodMaps())
            entry.methodMaps.append({ single.method, atMost(single.map, mapPixels) });
    });
    entry.failure = entry.record.failure;
    return entry;
}

double offsetOf(const QRect& window, const QSize& picture)
{
    const QSize room = picture - window.size();
    const int farthest = (std::max(room.width(), room.height()) + 1) / 2;
    const QPoint away = window.topLeft() - host::centredIn(picture, window.size()).topLeft();
    const int distance = std::max(std::abs(away.x()), std::abs(away.y()));
    return farthest == 0 ? 0 : static_cast<double>(distance) / farthest;
}

} // namespace vxroi
