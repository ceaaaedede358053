#pragma once

#include "VXAbstractROI.h"

/// The centre prior: a fixed Gaussian bump in the middle of the frame.
///
/// Photographers tend to put what matters near the middle, so, other things equal, the middle wins.
/// The bump is exp(-d² / (2 σ²)), where d is the distance to the centre (width / 2, height / 2) in
/// pixels and σ is 130 pixels whatever the size of the image. Pixels are measured from their upper
/// left corner, so the centre falls on a pixel where both sides are even, and that pixel is 255;
/// where a side is odd it falls between two, and the brightest value is 254.
///
/// **Takes** any image, of which only the size is used.
///
/// **Returns** a salience map (see VXAbstractROI): 255 times the bump, truncated. 130 pixels from
/// the centre along one axis the value is 154, at 260 pixels it is 34.
///
/// **Settings**: none beyond the base's; the constants are fixed.
///
/// **Costs** one exponential per row and per column, one multiplication per pixel.
///
/// **Threads and ownership**: as VXAbstractROI says.
class VXREGIONOFINTEREST_EXPORT VXGaussROI : public VXAbstractROI {
public:
    /// Constructs the method enabled and with weight 0.
    VXGaussROI();
    /// Copies every field.
    VXGaussROI(const VXGaussROI&) = default;
    /// Copies every field.
    VXGaussROI& operator=(const VXGaussROI&) = default;
    ~VXGaussROI() override;

    /// Computes the centre prior for the size of \a image.
    /// \return a salience map of that size; null for a null \a image.
    QImage evaluate(const QImage& image) override;
};
