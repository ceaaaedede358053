#pragma once

#include "picture/PictureFile.h"

#include <VXCrop/VXCrop.h>

#include <QString>

namespace host {

/// How pictures are read and analysed.
struct AnalysisRules {
    VXCropSettings salience;
    ReadingRules reading;
};

/// Analyses a picture.
/// \throws HostError when it is damaged.
VXCrop analysisOf(PictureFile& picture, const VXCropSettings& salience);

/// Takes the salience map of a picture of size \a picture from the file at \a path; see
/// VXCrop::fromMap(). What the user should know of the map is added to \a warnings.
/// \throws HostError when it is missing, is no picture, or breaks the rules.
VXCrop analysisFromMap(
    const QString& path, const QSize& picture, const ReadingRules& rules, QStringList& warnings);

} // namespace host
