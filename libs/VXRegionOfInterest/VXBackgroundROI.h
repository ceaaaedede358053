#pragma once

#include "VXAbstractROI.h"

/// What stands out from the background: how far each part of a picture is from what its border shows.
///
/// Photographers seldom let a subject touch the border, so what the border shows is background, and
/// what differs from it is subject. Three distances are added, on cells of a grid of at most 80 ×
/// 80: how far the colour must rise and fall on the way to the border (minimum barrier distance),
/// how unlike the colours of the four sides it is (Mahalanobis distance to all but the two that
/// differ most), and how much it changes on the way (geodesic distance). What lies below 0.3 times
/// their mean is dropped, and a wide Gaussian bump around the middle breaks ties.
///
/// Sources: Zhang et al., "Minimum Barrier Salient Object Detection at 80 FPS", ICCV 2015; Wei et al.,
/// "Geodesic Saliency Using Background Priors", ECCV 2012.
///
/// **Takes** any image; see VXAbstractROI.
///
/// **Returns** a salience map (see VXAbstractROI). The most salient cell is 255 at its middle, so pixels
/// come close to that. Where no cell differs from the border more than another, all is black. The map
/// is smooth: it tells where something is, not its outline.
///
/// **Settings**: none beyond the base's. The mixer does not own this method; VXSalienzMixer::mix() blends its
/// map with others.
///
/// **Costs** a pass over the pixels and a fixed amount of work for the cells, on one core 0.7 ms at
/// 640 × 480; beside the map, 12 bytes of memory for each column and about 1 MB.
///
/// **Threads and ownership**: as VXAbstractROI says.
class VXREGIONOFINTEREST_EXPORT VXBackgroundROI : public VXAbstractROI {
public:
    /// Constructs the method enabled and with weight 0.
    VXBackgroundROI();
    /// Copies every field.
    VXBackgroundROI(const VXBackgroundROI&) = default;
    /// Copies every field.
    VXBackgroundROI& operator=(const VXBackgroundROI&) = default;
    ~VXBackgroundROI() override;

    /// Computes how far each pixel of \a image stands out from its border.
    /// \return a salience map of the same size; null for a null \a image.
    QImage evaluate(const QImage& image) override;
};
