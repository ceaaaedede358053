#pragma once

#include "VXAbstractROI.h"

#include <array>

/// Edges and textured areas: the Sobel gradient of a blurred image, widened.
///
/// The image is blurred with VXGaussianBlur(3, 2.6), convolved with the two Sobel kernels, the
/// responses are combined into the gradient's magnitude, and strong ones spread with VXMaxFilter(7,
/// 50).
///
/// **Deliberate**: that blur divides by 0 and is opaque black (see VXGaussianBlur), so the map is
/// opaque black for every image. The method still counts with its weight in the mixer's divisor.
/// convolute() and combine(), called on an image of yours, do find edges.
///
/// **Takes** any image (see VXAbstractROI for formats).
///
/// **Returns** a salience map; null for a null image.
///
/// **Settings**: the loaded kernel, which convolute() applies; evaluate() loads both in turn and
/// leaves the vertical one behind.
///
/// **Costs** for evaluate() one write per pixel, since the map is known to be black; for convolute() nine
/// multiplications per pixel and channel, for combine() a square root per pixel.
///
/// **Threads and ownership**: as VXAbstractROI says.
class VXREGIONOFINTEREST_EXPORT VXSobelROI : public VXAbstractROI {
public:
    /// Constructs the method enabled, with weight 0 and the configureSobelH() kernel. The class has
    /// no destructor of its own: it owns nothing.
    VXSobelROI();

    /// Computes the edge salience of \a image.
    QImage evaluate(const QImage& image) override;

    /// Applies the loaded kernel to \a image, brought into ARGB32 first.
    ///
    /// For each pixel the absolute sums of the three channels are added and divided by 12,
    /// truncated, which keeps Sobel responses within 0 to 255. Border pixels repeat their nearest
    /// inner pixel. \return a grey ARGB32 image of the same size with the alpha of \a image; opaque
    /// black when a side is below 3 pixels; null for a null image.
    virtual QImage convolute(const QImage& image) const;

    /// Loads the kernel that responds to horizontal edges: 1 2 1, 0 0 0, -1 -2 -1.
    void configureSobelH();

    /// Loads the kernel that responds to vertical edges: 1 0 -1, 2 0 -2, 1 0 -1.
    void configureSobelV();

    /// The sum of the absolute weights of the loaded kernel; 8 for both.
    int totalWeight() const;

    /// Combines two grey responses into the gradient's magnitude.
    ///
    /// The magnitude, up to 360, is not clamped: from 256 on it wraps, so two responses of 255 give
    /// 104.
    /// \param horizontal,vertical responses of convolute(), read as VXAbstractROI says; where the
    ///        second is smaller it counts as 0.
    /// \return a grey image of the size and format (ARGB32 for other depths than 32 bits) of \a
    ///         horizontal, with its alpha.
    QImage combine(const QImage& horizontal, const QImage& vertical);

private:
    std::array<int, 9> kernel {};
};
