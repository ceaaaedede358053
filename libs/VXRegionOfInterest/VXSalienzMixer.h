#pragma once

#include "VXAbstractROI.h"
#include "VXRegionOfInterestExport.h"
#include "VXSalienzMethod.h"

#include <QImage>
#include <QList>
#include <QMap>
#include <QRect>
#include <QSize>

class VXHistogramROI;

/// Turns a picture into one salience map, by several methods. (Who wants a crop asks VXCrop.)
///
/// The mixer owns one object of each salience method, runs the enabled ones on the picture, scaled
/// into a working size, and blends their maps by signed integer weights.
///
/// **Takes** any picture (see VXAbstractROI for formats). A null one comes back as it is.
///
/// **Returns** a salience map of the working image's size: per pixel the weighted sum of the maps'
/// red values, divided by the sum of the positive weights, truncated and clamped to 0 to 255. Hand
/// it to a maximizer for the start of a crop.
///
/// **Settings**: the working size, and for each method a switch and a weight.
///
/// | method             | object                  | weight | enabled |
/// |--------------------|-------------------------|--------|---------|
/// | Sobel              | VXSobelROI              | 20     | yes     |
/// | Gauss              | VXGaussROI              | 2      | yes     |
/// | Histogram          | VXHistogramROI          | -10    | yes     |
/// | VeryImportantAreas | VXVeryImportantAreasROI | 20     | yes, once areas are injected |
/// | Achanta            | VXSalienzAchanta        | 10     | yes     |
///
/// The map of VXSobelROI is black for every picture: its weight counts in the divisor alone.
///
/// Operations on a method that the mixer does not hold do nothing; looking one up gives null.
///
/// **Costs** the scaling, each enabled method on the working image, and for the blend one
/// multiplication per map and one division per pixel.
///
/// **Threads and ownership**: reentrant. Use a mixer from one thread at a time; one mixer per thread
/// needs no locks. The mixer owns its methods and deletes them, so the pointers it hands out live as
/// long as it does; the pictures stay the host's.
class VXREGIONOFINTEREST_EXPORT VXSalienzMixer {
public:
    /// Constructs a mixer with the default methods and weights.
    /// \param size bound in pixels into which pictures are scaled, keeping their aspect ratio,
    ///        small ones up as well as large ones down. QSize() and any other size with a side
    ///        below 0 switch scaling off. A size with a zero side leaves nothing to evaluate:
    ///        analyze() then returns a copy of the picture itself, as it does where the working image
    ///        would have more columns than a QImage can have. analyze() throws std::bad_alloc where the
    ///        images do not fit into memory.
    VXSalienzMixer(const QSize& size);

    /// Deletes the methods.
    ~VXSalienzMixer();

    /// The mixer owns its methods and hands out pointers to them, so it is neither copied nor
    /// moved.
    VXSalienzMixer(const VXSalienzMixer&) = delete;
    VXSalienzMixer& operator=(const VXSalienzMixer&) = delete;

    /// Sets the weight of \a method in the blend.
    /// \param method one that the mixer holds; nothing happens for any other.
    /// \param weight any int. For ::Histogram the sign is flipped before it is stored, so that a
    ///        positive argument keeps that map subtracted; INT_MIN stays INT_MIN.
    void setMethodWeight(VXSalienzMethod method, int weight);

    /// Switches \a method on or off.
    void setMethodEnabled(VXSalienzMethod method, bool enabled);

    /// Whether \a method runs; false when the mixer does not hold it.
    bool isMethodEnabled(VXSalienzMethod method) const;

    /// The object behind \a method, owned by the mixer; null when the mixer does not hold it.
    VXAbstractROI* roiMethod(VXSalienzMethod method) const;

    /// The histogram method, for settings of its own; owned by the mixer.
    VXHistogramROI* histogramROI() const;

    /// Adds rectangles that the host marks as very important, as one more method of weight 20.
    ///
    /// A second call replaces the method but does not delete the earlier object: a host that wants
    /// its memory back fetches it with roiMethod() before the call and deletes it afterwards.
    /// \param areas rectangles in pixels of the working image.
    /// \param size size of the working image; where that is another, a warning is logged and the
    ///        areas are drawn unscaled (see VXVeryImportantAreasROI).
    void injectVeryImportantAreas(const QList<QRect>& areas, const QSize& size);

    /// \name Settings of the histogram method
    /// Each hands its argument to the setter of VXHistogramROI of the like name.
    /// \{
    void updateHistogramBinsChannel1(int bins); ///< Sets the bins of the first chroma channel.
    void updateHistogramBinsChannel2(int bins); ///< Sets the bins of the second chroma channel.
    void updateHistogramChiSquareThreshold(double threshold); ///< Sets the threshold.
    void updateHistogramHorizontalBlocks(int blocks); ///< Sets the columns of blocks.
    void updateHistogramVerticalBlocks(int blocks); ///< Sets the rows of blocks.
    void updateHistogramMinWidth(double fraction); ///< Sets the least width of a region.
    void updateHistogramMinHeight(double fraction); ///< Sets the least height of a region.
    /// \}

    /// Computes the blended salience map of \a image.
    /// \return with several maps, mix() of them and of gatherWeights(). With one map, that map as
    ///         it is: its weight, even a negative one, is not applied. With none (every method off,
    ///         or a null \a image), a copy of \a image itself, unscaled and in its own format.
    QImage analyze(const QImage& image);

    /// Scales \a image into the working size and evaluates each enabled method on it.
    /// \return the maps that are not null, in the order of VXSalienzMethod.
    QList<QImage> gatherResults(const QImage& image) const;

    /// The weights of the enabled methods, in the order of VXSalienzMethod.
    ///
    /// A method whose map was null still has its weight here.
    QList<int> gatherWeights() const;

    /// Blends \a maps by \a weights, paired by position.
    ///
    /// Each pixel is the sum over the maps of red times weight, divided by the sum of the positive
    /// weights (1 when that is 0), truncated toward zero and clamped to 0 to 255. Sums, divisor and
    /// quotient are 32-bit and wrap. Uses no field of the mixer.
    ///
    /// \param maps salience maps of one size. The first one's size is the result's; others are
    ///        taken as black where they are smaller and cut off where they are larger.
    /// \param weights one for each map; missing ones count as 0, surplus ones only in the divisor.
    /// \return a salience map of the first map's size; null when \a maps is empty or begins with a
    ///         null map.
    QImage mix(const QList<QImage>& maps, const QList<int>& weights);

private:
    QMap<VXSalienzMethod, VXAbstractROI*> methods;
    QSize workingSize;
};
