#pragma once

#include "VXRegionOfInterestExport.h"

#include <QImage>

#include <memory>

/// A two-dimensional histogram of the two low bytes of an image's pixels.
///
/// Rows count the second byte of each pixel word (bits 8 to 15), columns the lowest (bits 0 to 7).
/// Fed the image of VXHistogramROI::convertToYcbcr, those are the two chromas; luma and alpha are
/// never counted, so images that differ only in brightness compare as equal.
///
/// **Takes** an image of any format, read as VXAbstractROI says, and a number of bins per byte,
/// each of which spans 256 / bins byte values.
///
/// **Returns** counts, after normalizeHistogram() values of 0 to 1, and the distance of two
/// histograms.
///
/// **Settings**: the numbers of bins, once in the constructor.
///
/// **Costs** one addition per pixel, and rows · columns for normalising and for comparing.
///
/// Copies share their bins: normalising one shows in the others. The last copy releases them.
///
/// **Threads and ownership**: reentrant; a histogram and its copies are one table and belong to one
/// thread at a time. The image is not kept.
class VXREGIONOFINTEREST_EXPORT VXHistogram {
public:
    /// A histogram without bins, to be assigned to later: comparing it gives 0.0.
    VXHistogram();

    /// Counts the pixels of \a image.
    /// \param image an image in luma and chroma, of which green and blue are counted.
    /// \param rows,columns numbers of bins. Where one is below 1 there are no bins. Above 256 some
    ///        stay empty. Above 2²³ bins are computed in 32-bit arithmetic that wraps, and pixels
    ///        whose bin is negative are not counted. A table that does not fit into memory throws
    ///        std::bad_alloc.
    VXHistogram(const QImage& image, int rows, int columns);

    /// Rescales the bins so that the smallest becomes 0 and the greatest 1.
    ///
    /// The smallest is looked for below 1000.0 and the greatest above 0.0: where every bin holds
    /// more than 1000, 1000 becomes 0. Where both are the same, they become no numbers.
    void normalizeHistogram();

    /// The chi-square distance to \a other: the sum of (u - v)² / u over the bins, where u is this
    /// histogram's value and v the other's. Bins whose u is 0 or not a number are skipped, so the
    /// distance is not symmetric.
    /// \param other a bin that it lacks counts as 0; null gives 0.0.
    double compareHistogram(VXHistogram* other);

    /// The value of a bin: the column comes first. 0.0 for a bin that does not exist.
    double getHistogramValue(int column, int row);

private:
    struct Table;

    std::shared_ptr<Table> table; ///< bins1 rows of bins2 values
    int bins1 = 0;
    int bins2 = 0;
};
