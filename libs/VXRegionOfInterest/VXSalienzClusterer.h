#pragma once

#include "VXRegionOfInterestExport.h"

#include <QImage>
#include <QSize>

/// Divides a salience map into a grid of cells, called cubes, and paints each by how salient it is.
///
/// A cube that holds the average salience of a cube gets level 128, one that holds twice as much or
/// more 255. A cube with a few very bright pixels, whose mean excess over the map's mean exceeds
/// twice that mean, is boosted by that excess over cubes of equal but diffuse salience.
///
/// **Takes** a salience map (see VXAbstractROI), of which red is read. Maps that are not 32 bits
/// per pixel are converted to ARGB32 first.
///
/// **Returns** an opaque grey ARGB32 image of the map's size. It is black when a count is below 1
/// or larger than the side it divides, or when the average cube holds nothing; null for a null map.
///
/// **Deliberate**: the axes are crossed. cluster() divides the height by countCubesH() and the
/// width by countCubesV(); cubeSize() returns the cube's height as its width. A side that is no
/// multiple of the cube ends in a narrower cube, which is compared with the full average and comes
/// out darker. Sums are 32-bit and wrap: a cube that holds 2²⁵ or more, as 131587 white pixels do,
/// is not rated by these rules, nor is a map that holds 2³¹ or more; a cube whose pixels times rows
/// are a multiple of 2³² is black.
///
/// **Settings**: the two counts. **Costs** two readings and one writing of every pixel.
///
/// **Threads and ownership**: reentrant; once its counts are set, one object serves any number of
/// threads. It keeps nothing that it is given.
class VXREGIONOFINTEREST_EXPORT VXSalienzClusterer {
public:
    /// Constructs a clusterer of 10 by 10 cubes.
    VXSalienzClusterer();
    /// Copies every field.
    VXSalienzClusterer(const VXSalienzClusterer&) = default;
    /// Copies every field.
    VXSalienzClusterer& operator=(const VXSalienzClusterer&) = default;
    virtual ~VXSalienzClusterer();

    /// Sets the number that the height is divided by; any int is stored, below 1 gives a black map.
    void setCountCubesH(int count);

    /// Sets the number that the width is divided by; any int is stored, below 1 gives a black map.
    void setCountCubesV(int count);

    /// The number that the height is divided by.
    int countCubesH() const;

    /// The number that the width is divided by.
    int countCubesV() const;

    /// Both counts: countCubesH() as the width, countCubesV() as the height.
    QSize countCubes() const;

    /// The size of a cube of an image of \a size, with the axes crossed: the height divided by
    /// countCubesV() comes as the width, the width divided by countCubesH() as the height, both
    /// truncated toward zero. Where a count is 0 the quotient is 0.
    QSize cubeSize(const QSize& size) const;

    /// The sum of all red values of \a image, in 32-bit arithmetic that wraps; 0 for a null image.
    int totalSalience(const QImage& image) const;

    /// Paints the cubes of \a image.
    QImage cluster(const QImage& image) const;

private:
    int cubesH = 10;
    int cubesV = 10;
};
