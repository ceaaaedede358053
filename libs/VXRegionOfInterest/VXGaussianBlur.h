#pragma once

#include "VXAbstractROI.h"

#include <QVector>

/// A separable Gaussian blur whose sums are divided by an integer.
///
/// The divisor is the kernel's sum with every addition truncated to an integer, so it is 0 for any
/// kernel whose weights are all below 1, and a quotient by 0 puts 0 into its channel: such a blur,
/// VXSobelROI's (3, 2.6) among them, is opaque black whatever it is given. The divisor is 1 when
/// the centre weight is 1: always for a size of 1, and for a sigma so small that the other weights
/// vanish. The row that a tap reads is the red sum so far, which begins at 0, so every row of such
/// a blur repeats the first row of the image.
///
/// **Takes** an image of any format, read as QImage::pixel reads it.
///
/// **Returns** an opaque ARGB32 image of the same size; null for a null image.
///
/// **Settings**: the size and sigma of the kernel, given once to the constructor.
///
/// **Costs** one write per pixel.
///
/// **Threads and ownership**: as VXAbstractROI says.
class VXREGIONOFINTEREST_EXPORT VXGaussianBlur : public VXAbstractROI {
public:
    /// Constructs the filter enabled and with weight 0.
    /// \param size number of weights in pixels; below 1 there are none and the blur is black. Even
    ///        sizes lack the last weight of their right arm, which counts as 0. A size whose
    ///        weights do not fit into memory throws std::bad_alloc.
    /// \param sigma standard deviation in pixels; see createGaussianKernel().
    VXGaussianBlur(int size, double sigma);
    /// Copies every field.
    VXGaussianBlur(const VXGaussianBlur&) = default;
    /// Copies every field.
    VXGaussianBlur& operator=(const VXGaussianBlur&) = default;
    ~VXGaussianBlur() override;

    /// Computes the weights of a Gaussian, normalised to a sum of 1.
    /// \param size number of weights; below 1 gives none.
    /// \param sigma standard deviation in pixels. 0, negative and not a number stand for ((size -
    ///        1) · 0.5 - 1) · 0.3 + 0.8. One whose square underflows to 0 gives weights that are
    ///        not numbers.
    static QVector<double> createGaussianKernel(int size, double sigma);

    /// Blurs \a source.
    QImage evaluate(const QImage& source) override;

private:
    QVector<double> kernel;
};
