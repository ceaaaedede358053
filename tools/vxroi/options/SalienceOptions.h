#pragma once

#include "host/Explanation.h"

#include <VXCrop/VXCropSettings.h>

#include <QString>
#include <QStringList>
#include <QVector>

namespace vxroi {

/// The settings called \a name, one of presetNames().
/// \throws host::HostError when there is no such preset.
VXCropSettings presetCalled(const QString& name);

/// "photo", the default, and "library".
QStringList presetNames();

/// The presets, the methods and the settings of the histogram method, with explanations.
QVector<host::Explanation> explainedPresets();
QVector<host::Explanation> explainedMethods();
QVector<host::Explanation> explainedTunings();

/// Sets one weight, given as "sobel=20".
/// \throws host::HostError when \a text names no method, or its value is not between ±1000.
void setWeight(VXCropSettings& settings, const QString& text);

/// Sets one setting of the histogram method, given as "bins1=32".
/// \throws host::HostError when \a text names no setting, or its value is out of range.
void tune(VXCropSettings& settings, const QString& text);

} // namespace vxroi
