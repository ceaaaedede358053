#pragma once

#include <VXCrop/VXCropSettings.h>

#include <QImage>
#include <QRect>
#include <QSize>
#include <QString>
#include <QVector>

namespace evaluate {

/// A photograph and the pixels of it that a crop should keep: where people looked, or its subject.
class Sample {
public:
    /// \param points non-zero where a pixel counts; as large as the photograph.
    /// \throws host::HostError when either is no picture, or they differ in size.
    Sample(const QString& photograph, const QString& points);

    const QSize& size() const { return pictureSize; }
    const QImage& workingImage() const { return working; }

    /// The share of the points within \a window, which spans the picture's width or its height; 0
    /// when there are none.
    double keptBy(const QRect& window) const;

    /// The share of the best window of \a window's size.
    double keptByBest(const QSize& window) const;

private:
    QSize pictureSize;
    QImage working;
    QVector<int> columns; ///< how many points lie left of each column, and all of them at the end
    QVector<int> rows; ///< the same above each row
};

/// How much crops of one ratio keep on average: shares of the points, 0 to 1.
struct Kept {
    double chosen = 0;
    double centre = 0;
    double best = 0;

    /// What choosing gains over the centre, of what it could: 1 for the best windows, below 0 when
    /// the centre crops keep more.
    double score() const;
};

/// Crops all samples to \a ratio.
Kept evaluate(const QVector<Sample>& samples, const VXCropSettings& settings, const QSize& ratio);

} // namespace evaluate
