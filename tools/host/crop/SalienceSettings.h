#pragma once

#include "host/Explanation.h"

#include <VXCrop/VXCropSettings.h>

#include <QString>
#include <QStringList>
#include <QVector>

/// \file
/// How a picture is analysed, as text.

namespace host {

/// The settings called \a name, one of presetNames().
/// \throws HostError when there are none.
VXCropSettings presetCalled(const QString& name);

/// "photo", the default, and "library".
QStringList presetNames();

/// What the presets are for, the methods find and the settings of the histogram method do.
QVector<Explanation> explainedPresets();
QVector<Explanation> explainedMethods();
QVector<Explanation> explainedTunings();

/// Settings with every method off.
VXCropSettings withoutMethods();

/// Changes one weight, given as "sobel=20".
/// \throws HostError when \a text names no method, or its value is not between ±1000.
void setWeight(VXCropSettings& settings, const QString& text);

/// Changes one setting of the histogram method, given as "bins1=32".
/// \throws HostError when \a text names no setting, or its value is out of range.
void tune(VXCropSettings& settings, const QString& text);

/// The settings in one line: the preset's name or the weights that are not 0, then what is tuned.
/// The same settings give the same text, whatever options made them: "photo", "gauss=20 achanta=10
/// bins1=16".
QString textOf(const VXCropSettings& settings);

} // namespace host
