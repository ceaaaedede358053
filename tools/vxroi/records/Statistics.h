#pragma once

#include "host/records/CropRecord.h"

#include <QMap>
#include <QPair>
#include <QString>

#include <vector>

namespace vxroi {

/// Counts and averages over records.
class Statistics {
public:
    void add(const host::CropRecord& record);

    /// {"pictures", "ok", "failed", "failures": [{"code", "reason", "pictures"}], "crops", "decidedBy", "outputs",
    /// "warnings", "settings"}, and "meanSalience" and "meanCentreSalience" if there are crops with a window. In
    /// "settings", all maps given by the user count together as "map".
    QJsonObject toJson() const;

private:
    void add(const host::CropResult& crop);

    qint64 okCount = 0;
    qint64 cropCount = 0;
    qint64 warningCount = 0;
    double salience = 0; ///< sum over all windows
    double centreSalience = 0; ///< sum over all windows
    qint64 windowCount = 0;
    QMap<QPair<int, QString>, qint64> failures; ///< by code and reason
    QMap<QString, qint64> reasons;
    QMap<QString, qint64> outputs; ///< by state
    QMap<QString, qint64> settings;
};

/// Summarises the timings of batches, one file for each, as written by TimingsFile.
class TimingStatistics {
public:
    /// Adds the timings of one batch.
    /// \throws host::HostError when the file cannot be read, or contains something else.
    void add(const QString& path);

    bool isEmpty() const { return seconds.empty(); }

    /// {"pictures", "picturesPerSecond", "medianSeconds", "seconds95", "longestSeconds", "longest"}. The rates of the
    /// batches are added, on the assumption that they ran side by side. \pre !isEmpty()
    QJsonObject toJson() const;

private:
    std::vector<double> seconds;
    double picturesPerSecond = 0;
    double longestSeconds = 0;
    QString longest; ///< the picture that took longest
};

} // namespace vxroi
