#pragma once

#include "Evaluation.h"

#include <QStringList>

namespace evaluate {

/// The choice that \a name stands for: a preset, or weights such as "gauss=20,achanta=10" with all other methods off;
/// with "+faces" at its end, faces are kept.
/// \throws host::HostError when it is neither.
Choice choiceOf(const QString& name);

/// The photographs in \a folder, which has a folder images and a folder points.
/// \param detector finds their faces; null: they are not known.
/// \throws host::HostError when there are fewer than two, or one of them cannot be used.
QVector<Sample> samplesOf(const QString& folder, host::FaceDetector* detector);

/// The table of what the crops keep, in Markdown: for each of three ratios the centre crops, the best ones, and those
/// by each of the choices that \a names stand for.
QString tableOf(const QStringList& names, const QVector<Sample>& samples);

/// The table of what becomes of faces, for the same crops.
QString faceTableOf(const QStringList& names, const QVector<Sample>& samples);

} // namespace evaluate
