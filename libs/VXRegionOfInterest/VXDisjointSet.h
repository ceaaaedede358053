#pragma once

#include "VXDisjointElement.h"
#include "VXRegionOfInterestExport.h"

#include <QMap>
#include <QPoint>
#include <QVector>

#include <map>
#include <utility>
#include <vector>

/// Where a segment of a VXDisjointSet lies, in grid units: x counts columns, y counts rows.
struct segment {
    int minX; ///< leftmost column
    int minY; ///< top row
    int maxX; ///< right bound, see VXDisjointSet::getSegmentInformations
    int maxY; ///< bottom bound, see VXDisjointSet::getSegmentInformations
    float centroidX; ///< column of the centroid, see VXDisjointSet::getSegmentInformations
    float centroidY; ///< row of the centroid, see VXDisjointSet::getSegmentInformations
};

/// Whether \a p comes before \a q: by x, then by y.
VXREGIONOFINTEREST_EXPORT bool lexicallySmaller(const QPoint& p, const QPoint& q);

/// A union-find structure over a grid of cells: merges cells into segments and measures those.
///
/// Every cell begins as a segment of its own. The element of the cell in row r and column c has the
/// index r · columns + c; the root of a segment is the index that names it. Union is by rank, and
/// only the element that is asked for is compressed.
///
/// **Takes** element indices. An index outside 0 to cells - 1 is answered by -1 or 0 and changes
/// nothing. join() expects two different roots; other elements are joined all the same, and may give
/// segments that overlap, but never an endless search.
///
/// **Returns** roots, sizes, bounds and centroids; grids in which nothing was merged give one
/// segment per cell, empty ones none.
///
/// **Settings**: the grid, once in the constructor. **Costs**: where roots are joined, a search is
/// logarithmic in the size of the segment. A copy is an independent set.
///
/// **Threads and ownership**: reentrant; even looking something up changes the set, so use one from
/// one thread at a time. It owns its elements.
class VXREGIONOFINTEREST_EXPORT VXDisjointSet {
public:
    /// The record that getSegmentInformations() returns.
    using segment = ::segment;

    /// Constructs a grid in which every cell is a segment of its own.
    /// \param rows,columns sides of the grid. There are rows · columns elements, multiplied in 32 bits that
    ///        wrap; none where the product is below 1. Where a side is negative or the product wraps, the
    ///        operations on the grid find no cells.
    VXDisjointSet(int rows, int columns);

    /// The root of element \a i, to which it is re-pointed; -1 for an index outside.
    int find(int i);

    /// Unites the segments of the roots \a a and \a b; the one of higher rank stays root, on a tie
    /// \a b.
    void join(int a, int b);

    /// The number of segments: rows times columns, in 32 bits that wrap, less one for every join(). So a
    /// grid of -2 rows and 4 columns has -8.
    int getCount();

    /// The size field of element \a i: of the segment when \a i is its root; 0 for an index
    /// outside.
    int size(int i);

    /// The rank of element \a i divided by its size; 0.0 for an index outside.
    double value(int i) const;

    /// The grid of roots: at [row][column] the root of that cell.
    /// \return as many rows as the grid has, none where the product of both sides wraps. The caller owns
    ///         them: delete[] each row, then the array.
    int** getSubSets();

    /// The extents of every segment, by root: first column, top row, second column, bottom row.
    ///
    /// The rows are the true ones. The columns follow the cells, row by row from left to right: a
    /// column right of the first becomes the second; one at or left of it becomes the first, and
    /// the old first the second.
    QMap<int, QVector<int>> getSegmentSizes();

    /// The bounds and centroid of every segment, by root.
    ///
    /// A fresh segment has the exclusive bounds of its first cell, (column + 1, row + 1); further
    /// cells raise a bound only to their own column and row. The centroid is that of the cells'
    /// upper left and lower right corners: their mean up to a size of 3, beyond it
    /// calculateCentroid() of their convex hull, which is not finite when they lie on one line.
    std::map<int, segment> getSegmentInformations();

    /// The convex hull of \a points (Andrew's monotone chain, 1979).
    /// \return the corners with positive cross() turns, from the lexically smallest point back to
    ///         it, which is repeated at the end; points on an edge are dropped. One point gives
    ///         that point, none gives none, copies of one point give copies of it.
    std::vector<QPoint> convex_hull(std::vector<QPoint> points);

    /// The centroid of the closed polygon through the points of \a polygon, in single precision.
    /// \return its coordinates; not finite where the polygon has no area.
    /// \throws std::out_of_range for an empty or missing polygon.
    std::pair<float, float> calculateCentroid(std::vector<QPoint>* polygon);

    /// (a.x - o.x) · (b.y - o.y) - (a.y - o.y) · (b.x - o.x) in 32-bit arithmetic that wraps:
    /// positive when o, a, b turn counter-clockwise with y pointing up.
    int cross(QPoint o, QPoint a, QPoint b);

private:
    bool contains(int i) const;

    QVector<VXDisjointElement> elements;
    int rows;
    int columns;
    int count;
};
