#pragma once

#include "VXAbstractROI.h"
#include "VXMaxFilter.h"

#include <QList>

/// Surround contrast: a pixel is salient when its colour differs from the mean of its surround.
///
/// The surround is the largest rectangle centred on the pixel that fits into the image: maximum
/// symmetric surround saliency (Achanta and Süsstrunk, ICIP 2010). The lightly smoothed colour of
/// the pixel is compared with the unsmoothed mean in a luma/chroma space; the squared distance,
/// stretched to 0 to 255, is the salience. Levels above 150 then spread along row and column
/// (VXMaxFilter, arms of 45 pixels), so that the inside of an object counts with its outline.
///
/// **Takes** any image (see VXAbstractROI for formats); alpha is ignored.
///
/// **Returns** a salience map. It is black where the contrasts of the image span less than 1, as in
/// an image of one colour; null for a null image.
///
/// **Settings**: none beyond the base's; the filter is fixed.
///
/// **Costs** a few additions per pixel for the surround, whatever its size, some multiplications, and the
/// maximum filter. Where a contrast is so close to the next level that only rounding decides, as in
/// chessboards and stripes, everything is computed again to the bit, several times slower. Needs 9 bytes of memory
/// per pixel and a few rows, and 4 more for an image that is converted first.
///
/// **Threads and ownership**: as VXAbstractROI says.
class VXREGIONOFINTEREST_EXPORT VXSalienzAchanta : public VXAbstractROI {
public:
    /// Constructs the method enabled and with weight 0.
    VXSalienzAchanta();
    /// Copies every field.
    VXSalienzAchanta(const VXSalienzAchanta&) = default;
    /// Copies every field.
    VXSalienzAchanta& operator=(const VXSalienzAchanta&) = default;
    ~VXSalienzAchanta() override;

    /// Computes the surround contrast of \a source.
    QImage evaluate(const QImage& source) override;

    /// A list of \a count zeros; empty when \a count is below 1.
    QList<double> createZeroedList(int count) const;

    /// \a height rows of \a width zeros; no rows when \a height is below 1, empty rows when \a
    /// width is.
    QList<QList<double>> createZeroed2dList(int width, int height) const;

    /// Smooths a row-major plane along its rows, then along its columns.
    ///
    /// Each value is the weighted mean of its neighbourhood; the weights that fall inside the plane
    /// are normalised by their own sum, so \a kernel need not be.
    /// \param input the plane, \a width · \a height values.
    /// \param width,height sides of the plane in values.
    /// \param kernel weights of taps -m / 2 to m / 2; an even m lacks the last, which is left out.
    ///        Where the weights that fall inside are none or sum to 0, values are infinite or no
    ///        numbers.
    /// \param output receives as many values, and must hold that many already. Where \a input or \a
    ///        output hold fewer, or a side is below 1, nothing happens.
    void gaussianSmooth(const QList<double>& input, int width, int height,
        const QList<double>& kernel, QList<double>& output);

    /// Fills \a output with the integral image of a row-major plane: at [y][x] the sum of columns 0
    /// to x of rows 0 to y.
    /// \param plane \a width · \a height values.
    /// \param width,height sides of the plane in values.
    /// \param output \a height rows of \a width values already. Where \a plane or \a output hold
    ///        fewer, or a side is below 1, nothing happens.
    void integralImage(
        const QList<double>& plane, int width, int height, QList<QList<double>>& output);

    /// The sum of a plane over columns \a x1 to \a x2 and rows \a y1 to \a y2, both inclusive.
    /// \param integral the plane's integral image.
    /// \param x1,x2 first and last column.
    /// \param y1,y2 first and last row.
    /// \return the sum; 0 when a corner lies beyond the integral image. \a x1 and \a y1 below 0
    ///         count as 0.
    double integralSum(const QList<QList<double>>& integral, int x1, int y1, int x2, int y2);

private:
    VXMaxFilter maxFilter;
};
