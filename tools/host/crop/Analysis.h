#pragma once

#include "host/picture/PictureFile.h"

#include <VXCrop/VXCrop.h>

#include <QString>
#include <QStringList>

#include <memory>

namespace host {

/// How pictures are read and analysed.
struct AnalysisRules {
    VXCropSettings salience;
    ReadingRules reading;
};

/// Analyses a picture; of several frames, it takes the mean of the maps of at most ten.
/// \throws HostError when it is damaged.
VXCrop analysisOf(PictureFile& picture, const VXCropSettings& salience);

/// Opens a picture that is a salience map.
/// \throws HostError when it is missing, is no picture, or breaks the rules.
std::unique_ptr<PictureFile> openMap(const QString& path, const ReadingRules& rules);

/// Takes the salience map of a picture of size \a picture from \a map; see VXCrop::fromMap(). What the user should
/// know of the map is added to \a warnings.
/// \throws HostError when it is damaged.
VXCrop analysisFromMap(PictureFile& map, const QSize& picture, QStringList& warnings);

} // namespace host
