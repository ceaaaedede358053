#include "ReportEntry.h"

#include "host/FileName.h"
#include "host/crop/MapStore.h"
#include "host/picture/ImageMemory.h"
#include "host/records/CropWindow.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <new>

namespace vxroi {

using host::CropRecord;
using host::ExitCode;
using host::HostError;
using host::PictureFile;

namespace {

constexpr int thumbnailPixels = 320; ///< on the longer side, at most
constexpr int mapPixels = 160;

QImage atMost(const QImage& image, int pixels)
{
    if (std::max(image.width(), image.height()) <= pixels)
        return image;
    return host::notNull(
        image.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

QImage thumbnailOf(PictureFile& picture)
{
    return atMost(picture.readWorkingImage(), thumbnailPixels);
}

// A missing picture of a record needs another remedy than one that is missing on the command line.
std::unique_ptr<PictureFile> openPictureOf(
    const CropRecord& record, const host::ReadingRules& rules)
try {
    if (host::isStandardStream(record.path))
        throw HostError(ExitCode::UnreadableInput, QStringLiteral("standard input"),
            QStringLiteral("the picture of the record is gone: it was not in a file"),
            QStringLiteral("save it, and crop it from there"));
    return std::make_unique<PictureFile>(record.path, rules);
} catch (const HostError& error) {
    if (error.code() != ExitCode::MissingInput)
        throw;
    throw HostError(error.code(), error.subject(),
        QStringLiteral("the picture of the record is gone: %1").arg(error.reason()),
        QStringLiteral("put it back, or run where the records were written"));
}

void showPicture(ReportEntry& entry, const host::ReadingRules& rules)
{
    const std::unique_ptr<PictureFile> picture = openPictureOf(entry.record, rules);
    QSize& recorded = entry.record.oriented;
    if (recorded.isEmpty()) // a record whose crops were all skipped may lack the size
        recorded = picture->orientedSize();
    if (picture->orientedSize() != recorded)
        throw HostError(ExitCode::UnreadableInput, entry.record.path,
            QStringLiteral("the picture has a different size than its record says"),
            QStringLiteral("crop it again"));
    entry.thumbnail = thumbnailOf(*picture);
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

ReportEntry entryOf(
    const CropRecord& record, const host::ReadingRules& rules, const host::MapStore* maps)
{
    ReportEntry entry;
    entry.record = record;
    entry.failure = record.failure;
    if (entry.failure)
        return entry;
    try {
        showPicture(entry, rules);
        if (maps != nullptr && record.file)
            entry.map
                = atMost(maps->find({ record.path, *record.file, record.settings, record.frames },
                             entry.record.oriented),
                    mapPixels);
    } catch (const HostError& error) {
        entry.failure = error;
    } catch (const std::bad_alloc&) {
        entry.failure = HostError(ExitCode::Internal, record.path,
            QStringLiteral("there is not enough memory"), QStringLiteral("show it alone"));
    }
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
