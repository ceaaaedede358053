#pragma once

#include "../RowLoops.h"
#include "Lab.h"

#include <QImage>
#include <QSize>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace vx::kernels {

/// One value for each cell of a grid, row by row.
template <typename Value> class Cells {
public:
    /// A grid of \a gridSize cells, all \a value. \pre both sides are above 0.
    explicit Cells(const QSize& gridSize, Value value = {})
        : size(gridSize)
        , values(static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height()),
              value)
    {
    }

    /// The number of columns.
    int columns() const { return size.width(); }
    /// The number of rows.
    int rows() const { return size.height(); }
    /// The value of the cell in column \a x and row \a y.
    Value& at(int x, int y) { return values[index(x, y)]; }
    /// The value of the cell in column \a x and row \a y.
    const Value& at(int x, int y) const { return values[index(x, y)]; }

    /// The first of all values, row by row.
    auto begin() { return values.begin(); }
    /// The first of all values, row by row.
    auto begin() const { return values.begin(); }
    /// Behind the last of all values.
    auto end() { return values.end(); }
    /// Behind the last of all values.
    auto end() const { return values.end(); }

private:
    std::size_t index(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(size.width())
            + static_cast<std::size_t>(x);
    }

    QSize size;
    std::vector<Value> values;
};

/// The grid for an image of size \a image: its shape, with \a longerSide cells along the longer side, rounded
/// to whole cells, at least 1 and at most one for each pixel. \pre \a image is not empty.
QSize gridFor(const QSize& image, int longerSide);

/// The mean colour of each cell of \a words, an image of 32 bits per pixel that is not null.
///
/// Column X of W cells has the pixels of columns X · w / W to (X + 1) · w / W − 1, with w the image's width
/// and truncated quotients; rows alike. Means are rounded to 8 bits per channel before they are converted.
/// \pre \a grid is not empty and has no more columns and rows than the image.
Cells<Lab> cellColours(
    const QImage& words, const QSize& grid, const RowLoops& loops = fastestRowLoops());

/// Moves and scales \a cells to reach from 0 to 1; those that are all the same become 0.
void stretch(Cells<double>& cells);

/// A place between two neighbouring cells along an axis.
struct Between {
    int first; ///< the cell before
    int second; ///< the cell after, or the same at the end
    double share; ///< of the way from the first to the second, 0 to 1
};

/// Where the middle of \a position, one of \a positions, lies between the middles of \a cells cells
/// that fill the same length; before the first middle it is the first, after the last the last.
inline Between betweenCells(int position, int positions, int cells)
{
    const double place = std::clamp(
        (position + 0.5) * cells / positions - 0.5, 0.0, static_cast<double>(cells - 1));
    const int first = static_cast<int>(place);
    return { first, std::min(first + 1, cells - 1), place - first };
}

/// What lies a \a share of the way from \a first to \a second.
inline double mixed(double first, double second, double share)
{
    return first + (second - first) * share;
}

/// \a cells enlarged to \a size by bilinear interpolation between the middles of cells.
Cells<double> enlarged(const Cells<double>& cells, const QSize& size);

/// Writes \a cells, whose values are 0 to 1, into \a map, enlarged by bilinear interpolation
/// between the middles of cells, as opaque grey: 255 times the value, rounded. The rows are mixed
/// in double precision, then the columns in single precision. \pre \a map has 32 bits per pixel and
/// no fewer rows and columns than there are cells.
void writeEnlarged(
    const Cells<double>& cells, QImage& map, const RowLoops& loops = fastestRowLoops());

} // namespace vx::kernels
