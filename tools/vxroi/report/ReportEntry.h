#pragma once

#include "host/crop/Cropper.h"

#include <QImage>
#include <QVector>

#include <optional>

namespace vxroi {

/// What a report shows of one picture: its record, and what there is to look at.
struct ReportEntry {
    host::CropRecord record;
    std::optional<host::HostError> failure; ///< why the picture is not shown
    QImage thumbnail; ///< null: the picture is not shown
    QImage map; ///< null: there is none to show as heat
    QVector<VXCropMap> methodMaps; ///< none unless they are asked for
};

/// Crops a picture without writing anything, and keeps what is shown of it; a failure is in the entry.
/// \param hasMethods whether the maps of single methods are shown.
ReportEntry entryOf(host::Cropper& cropper, const host::CropTask& task, bool hasMethods);

/// Opens the picture of \a record for its thumbnail; a failure is in the entry.
/// \param maps where its map is taken from; nullptr: nowhere.
ReportEntry entryOf(
    const host::CropRecord& record, const host::ReadingRules& rules, const host::MapStore* maps);

/// How far \a window lies from the middle of \a picture, of how far it could: 0 to 1.
double offsetOf(const QRect& window, const QSize& picture);

} // namespace vxroi
