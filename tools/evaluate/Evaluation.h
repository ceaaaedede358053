#pragma once

#include "host/detector/FaceDetector.h"

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
    /// \param detector finds the faces of the photograph; null: they are not known.
    /// \throws host::HostError when either is not a picture, or they differ in size, or the detector fails.
    Sample(
        const QString& photograph, const QString& points, host::FaceDetector* detector = nullptr);

    const QSize& size() const { return pictureSize; }
    const QImage& workingImage() const { return working; }
    const QVector<QRect>& faces() const { return faceBoxes; }

    /// The share of the points within \a window, which spans the picture's width or its height; 0
    /// when there are none.
    double keptBy(const QRect& window) const;

    /// The share within the best window of that size.
    double keptByBest(const QSize& window) const;

private:
    QSize pictureSize;
    QImage working;
    QVector<QRect> faceBoxes;
    QVector<int> columns; ///< how many points lie left of each column, and all of them at the end
    QVector<int> rows; ///< the same above each row
};

/// How much crops of one photograph keep: shares of its points, 0 to 1.
struct Kept {
    double chosen = 0;
    double centre = 0;
    double best = 0;
};

/// What the crops of several photographs keep on average.
struct Summary {
    Kept mean;
    /// Over the centre crop, as a fraction of what the best crop gains: 1 for that, below 0 if the centre keeps more.
    double gain = 0;
    double leastGain = 0; ///< the lower end of the 95 % confidence interval of the gain
    double mostGain = 0; ///< its upper end
};

/// What crops keep on average; none of anything for no crops.
Kept meanOf(const QVector<Kept>& all);

/// How crops are chosen.
struct Choice {
    VXCropSettings settings;
    bool areFacesKept = false;
};

/// The crop of a sample to \a ratio.
QRect cropOf(const Sample& sample, const Choice& choice, const QSize& ratio);

/// What it keeps.
Kept keptOf(const Sample& sample, const Choice& choice, const QSize& ratio);

/// What becomes of the faces that fit into a crop.
struct FaceCounts {
    int whole = 0;
    int cut = 0;
    int leftOut = 0;
};

FaceCounts facesIn(const QVector<Sample>& samples, const Choice& choice, const QSize& ratio);

/// Summarises what crops keep. The interval is that of 2000 bootstrap samples (percentile
/// method, B. Efron, "Bootstrap Methods: Another Look at the Jackknife", 1979), which are the same
/// in every run.
/// \pre \a all is not empty.
Summary summaryOf(const QVector<Kept>& all);

} // namespace evaluate
