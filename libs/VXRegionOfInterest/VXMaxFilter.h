#pragma once

#include "VXAbstractROI.h"

/// A maximum filter (dilation) whose structuring element is a cross: bright pixels spread along row and column.
///
/// Each pixel of the result is the one of greatest red among itself and every pixel above the
/// threshold in its row or column within the radius, size / 2. Only red decides; all four channels are copied. On
/// equal red a pixel keeps what it has, and among equal candidates the first in scan order wins.
///
/// **Takes** an image of any format, read and written as QImage::pixel and QImage::setPixel do.
/// ARGB32, RGB32 and Grayscale8 are fast. In palette, mono and alpha formats nothing spreads.
///
/// **Returns** an image of the same size and format, with the properties that QImage::copy takes over from
/// the source, in memory of its own; null for a null image.
///
/// **Settings**: size and threshold, given once to the constructor.
///
/// **Costs** in the fast formats hardly more for a large size than for a small one, whatever the image
/// shows; least where what spreads is opaque grey, as in every salience map. In other formats the cost
/// grows with the size.
///
/// **Threads and ownership**: as VXAbstractROI says.
class VXREGIONOFINTEREST_EXPORT VXMaxFilter : public VXAbstractROI {
public:
    /// Constructs the filter enabled and with weight 0.
    /// \param size full extent of the cross in pixels; any int. Arms reach size / 2, so 7 reaches
    ///        three pixels to each side; -1, 0 and 1 change nothing, nor does anything below; more
    ///        than twice the side of the image reaches the whole row and column.
    /// \param threshold red value that a pixel must exceed to spread; any int. Below 0 every pixel
    ///        spreads, from 255 on none.
    VXMaxFilter(int size, int threshold);
    /// Copies every field.
    VXMaxFilter(const VXMaxFilter&) = default;
    /// Copies every field.
    VXMaxFilter& operator=(const VXMaxFilter&) = default;
    ~VXMaxFilter() override;

    /// Spreads the bright pixels of \a source.
    QImage evaluate(const QImage& source) override;

private:
    int size;
    int threshold;
};
