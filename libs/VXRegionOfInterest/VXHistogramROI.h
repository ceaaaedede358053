#pragma once

#include "VXAbstractROI.h"

class VXDisjointSet;

/// Large regions of similar colour, typically backgrounds.
///
/// The image is divided into a grid of blocks, each described by a chroma histogram (VXHistogram).
/// Neighbouring blocks, diagonal ones included, are joined by edges weighted with the chi-square
/// distance of their histograms, and merged along the edges of ascending weight up to a threshold
/// (VXDisjointSet): region segmentation on a graph (after Felzenszwalb and Huttenlocher, 2004, with
/// one fixed threshold). Every block of a region that is tall or wide enough is painted with a
/// level that grows with the region's extent. The mixer subtracts this map.
///
/// **Takes** any image (see VXAbstractROI for formats); brightness and alpha do not count.
///
/// **Returns** a salience map. The level of a region is its height times its width in blocks, each
/// less one, minus 1, at most 255; the extents are those of VXDisjointSet::getSegmentSizes, whose
/// columns need not be the outermost. A region that covers the default grid has level 139, one of a
/// single block row or column is black. Columns and rows that remain beside the grid are black. All
/// is black where the image is smaller than the grid or a setting is out of range. Null for a null
/// image.
///
/// **Settings**: the grid, the threshold, the bins and the least extents; each takes effect at the
/// next evaluation.
///
/// **Costs** a conversion and a count per pixel, and four comparisons of all bins per block.
///
/// **Threads and ownership**: as VXAbstractROI says.
class VXREGIONOFINTEREST_EXPORT VXHistogramROI : public VXAbstractROI {
public:
    /// Constructs the method enabled, with weight 0 and the default settings.
    VXHistogramROI();
    /// Copies every field.
    VXHistogramROI(const VXHistogramROI&) = default;
    /// Copies every field.
    VXHistogramROI& operator=(const VXHistogramROI&) = default;
    ~VXHistogramROI() override;

    /// Paints the large regions of \a image.
    QImage evaluate(const QImage& image) override;

    /// The greatest distance at which two regions are still merged. Default 0.67; below 0, or not a
    /// number, nothing merges and the map is black.
    void setChiSquareThreshold(double threshold);

    /// The number of block rows, 1 to 100. Default 11; outside that range the map is black.
    void setVerticalBlocks(int blocks);

    /// The number of block columns, 1 to 100. Default 15; outside that range the map is black.
    void setHorizontalBlocks(int blocks);

    /// The fraction of the block rows that a region's extent must exceed to be painted; default
    /// 0.25.
    void setMinHeight(double fraction);

    /// The fraction of the block columns that a region's extent must exceed to be painted; default
    /// 0.5.
    void setMinWidth(double fraction);

    /// The number of bins of the blue difference. Default 32; below 1 the map is black, and
    /// from 257 on, more than there are byte values, their number makes no difference.
    void setBin1(int bins);

    /// The number of bins of the red difference; see setBin1().
    void setBin2(int bins);

    /// Converts an image to luma and chroma: luma in red, the blue difference in green, the red
    /// difference in blue, opaque.
    /// \param sizeImage an image of whose size only as many rows and columns are converted.
    /// \param source the image to convert, read as VXAbstractROI says.
    /// \return an ARGB32 image of the size of \a source, opaque black where nothing was converted.
    QImage convertToYcbcr(QImage sizeImage, const QImage& source) const;

    /// Converts one pixel word 0xAARRGGBB as convertToYcbcr() does. Despite the name the blue
    /// difference comes before the red.
    unsigned int RGB2YCrCb(const unsigned int& rgb) const;

    /// Paints one block of a map.
    /// \param column,row position of the block in the grid.
    /// \param value the level, truncated and clamped to 0 to 255; 0 when not a number.
    /// \param target the map, of any format but palette ones, which are left alone.
    /// \param blockWidth,blockHeight size of a block in QPainter's coordinates: where \a target has a device
    ///        pixel ratio of 2, a unit is two pixels. Below 1 nothing is painted.
    void drawTarget(
        int column, int row, double value, QImage& target, int blockWidth, int blockHeight) const;

private:
    void paintLargeRegions(VXDisjointSet& regions, const QSize& blockSize, QImage& map) const;

    double chiSquareThreshold = 0.67;
    int verticalBlocks = 11;
    int horizontalBlocks = 15;
    double minHeight = 0.25;
    double minWidth = 0.5;
    int bin1 = 32;
    int bin2 = 32;
};
