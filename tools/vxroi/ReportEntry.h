#pragma once

#include "Options.h"

#include "host/Analysis.h"

#include <QImage>
#include <QString>
#include <QVector>

namespace vxroi {

/// One crop of a picture in a report.
struct ReportCrop {
    QString shape;
    VXCropWindow chosen;
    QRect centred; ///< the window of that size in the middle

    /// How far the window lies from the middle, of how far it could: 0 to 1.
    double offset(const QSize& picture) const;
};

/// What a report shows of one picture.
struct ReportEntry {
    QString path;
    QString failure; ///< why there is nothing else; empty when there is
    QSize size; ///< of the picture, in pixels
    QImage working; ///< what was analysed
    QImage map; ///< the blended map
    QVector<VXCropMap> methodMaps;
    QVector<ReportCrop> crops;
};

/// Analyses a picture for a report; a failure is in the entry, and never thrown.
ReportEntry reportEntryOf(
    const QString& path, const QVector<host::CropShape>& shapes, const host::AnalysisRules& rules);

} // namespace vxroi
