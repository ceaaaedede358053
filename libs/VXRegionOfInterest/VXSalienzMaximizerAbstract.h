#pragma once

#include "VXRegionOfInterestExport.h"

#include <QImage>
#include <QList>

/// Finds where a strip of given length holds the most salience: the start of the best crop.
///
/// The map is reduced to one sum per position along an axis (VXSalienzMaximizerHorizontal: per
/// column, VXSalienzMaximizerVertical: per row), and the range of positions with the greatest total
/// wins. On a tie the earliest start wins.
///
/// **Takes** a salience map (see VXAbstractROI), of which red is read, and a length in pixels of
/// the map. Maps that are not 32 bits per pixel are converted to ARGB32 first.
///
/// **Returns** the first position of the range, counted from 0 at the left or top.
///
/// **Deliberate**: the last possible start, where the range would end on the last position, is
/// never examined, and with a single start besides 0 the answer is 0 without a comparison. So the
/// sums 3 1 4 1 5 9 give start 2 (sum 10) for length 3, although start 3 has sum 15. A host that
/// wants the last start compared does so with sums() and conglumerate().
///
/// **Settings**: none. **Costs** one pass over the map and two over its positions.
///
/// **Threads and ownership**: a maximizer has no state, so one object serves any number of threads.
/// It keeps nothing that it is given.
class VXREGIONOFINTEREST_EXPORT VXSalienzMaximizerAbstract {
public:
    virtual ~VXSalienzMaximizerAbstract();

    /// Reduces \a image to one sum of red values per position along the axis.
    /// \return as many sums as the axis has pixels; none for a null \a image.
    virtual QList<long long> sums(const QImage& image) const = 0;

    /// Turns \a values into running sums: entry i is the sum of the values 0 to i.
    /// \return as many entries as \a values has. Sums beyond 64 bits wrap.
    QList<long long> conglumerate(const QList<long long>& values) const;

    /// Finds the range of \a length positions with the greatest sum.
    /// \param cumulative running sums, as conglumerate() returns them.
    /// \param length positions in the range.
    /// \return the start of the range. 0 when \a length is below 1, or when it leaves fewer than
    ///         two positions of \a cumulative over.
    int bestRange(const QList<long long>& cumulative, int length) const;

    /// Finds the strip of \a length pixels that holds the most salience of \a image.
    /// \return bestRange(conglumerate(sums(image)), length).
    int startOfBestRange(const QImage& image, int length) const;

protected:
    /// For the axis classes; the base has no fields, so copies have nothing to carry.
    VXSalienzMaximizerAbstract() = default;
    /// Copies every field.
    VXSalienzMaximizerAbstract(const VXSalienzMaximizerAbstract&) = default;
    /// Copies every field.
    VXSalienzMaximizerAbstract& operator=(const VXSalienzMaximizerAbstract&) = default;
};
