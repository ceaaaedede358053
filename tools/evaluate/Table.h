#pragma once

#include "Evaluation.h"

#include <QStringList>

namespace evaluate {

/// The settings that \a name stands for: a preset, or weights such as "gauss=20,achanta=10" with all other methods
/// off.
/// \throws host::HostError when it is neither.
VXCropSettings settingsOf(const QString& name);

/// The photographs in \a folder, which has a folder images and a folder points.
/// \throws host::HostError when there are fewer than two, or one of them cannot be used.
QVector<Sample> samplesOf(const QString& folder);

/// The table of what the crops keep, in Markdown: for each of three ratios the centre crops, the best ones, and those
/// by each of the settings that \a names stand for.
QString tableOf(const QStringList& names, const QVector<Sample>& samples);

} // namespace evaluate
