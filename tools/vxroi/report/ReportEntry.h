#pragma once

#include "host/crop/Cropper.h"

#include <QImage>
#include <QVector>

#include <optional>

namespace vxroi {

/// What a report shows of one picture: its record, its thumbnail and its maps.
struct ReportEntry {
    host::CropRecord record;
    std::optional<host::HostError> failure; ///< why the picture is not shown
    QImage thumbnail; ///< null: the picture is not shown
    QImage map; ///< null: there is no map to show as heat
    QVector<VXCropMap> methodMaps; ///< empty unless requested
};

/// Chooses the crops of a picture, writing no files. A failure is stored in the entry.
/// \param hasMethods whether the maps of single methods are included.
ReportEntry entryOf(host::Cropper& cropper, const host::CropTask& task, bool hasMethods);

/// Shows a record as it is; its picture is opened only for the thumbnail. A failure is stored in the entry.
/// \param maps the store with the map of the picture; null: the map is not shown.
ReportEntry entryOf(
    const host::CropRecord& record, const host::ReadingRules& rules, const host::MapStore* maps);

/// The distance of \a window from the centre of \a picture, as a share of the largest possible distance: 0 to 1.
double offsetOf(const QRect& window, const QSize& picture);

} // namespace vxroi
