#pragma once

#include "host/records/CropRecord.h"

#include <QMap>
#include <QPair>
#include <QString>

#include <vector>

namespace vxroi {

/// Counts what records say.
class Statistics {
public:
    void add(const host::CropRecord& record);

    /// {"pictures", "ok", "failed", "failures": [{"code", "reason", "pictures"}], "crops", "decidedBy", "outputs", "warnings",
    /// "settings"}, and "meanSalience" and "meanCentreSalience" if there are windows. All maps of one's own count as one
    /// setting, "map".
    QJsonObject toJson() const;

private:
    void add(const host::CropResult& crop);

    qint64 okCount = 0;
    qint64 cropCount = 0;
    qint64 warningCount = 0;
    double salience = 0; ///< of all windows together
    double centreSalience = 0;
    qint64 windowCount = 0;
    QMap<QPair<int, QString>, qint64> failures; ///< by code and reason
    QMap<QString, qint64> reasons;
    QMap<QString, qint64> outputs; ///< by what became of them
    QMap<QString, qint64> settings;
};

/// Sums up what batches took, of which each has a file that TimingsFile has written.
class TimingStatistics {
public:
    /// \throws host::HostError when the file cannot be read, or holds something else.
    void add(const QString& path);

    bool isEmpty() const { return seconds.empty(); }

    /// {"pictures", "picturesPerSecond", "medianSeconds", "seconds95", "longestSeconds", "longest"}: the rates of batches are
    /// added, because they ran side by side.
    QJsonObject toJson() const;

private:
    std::vector<double> seconds;
    double picturesPerSecond = 0;
    double longestSeconds = 0;
    QString longest; ///< the picture that took so long
};

} // namespace vxroi
