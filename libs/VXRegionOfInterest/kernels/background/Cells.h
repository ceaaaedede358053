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

    /// The first value, row by row.
    auto begin() { return values.begin(); }
    /// The first value, row by row.
    auto begin() const { return values.begin(); }
    /// One past the last value.
    auto end() { return values.end(); }
    /// One past the last value.
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

/// The grid for an image of size \a image: \a longerSide cells along the longer side, and in proportion along the other,
/// rounded to whole cells, at least 1 and at most one for each pixel. \pre \a image is not empty.
QSize gridFor(const QSize& image, int longerSide);

/// The mean colour of each cell of \a words, an image of 32 bits per pixel that is not null.
///
/// Column X of W columns of cells has the pixels in columns X · w / W to (X + 1) · w / W − 1, where w is the width of the
/// image and quotients are truncated; so do rows. Means are rounded to 8 bits per channel before they are converted.
/// \pre \a grid is not empty and has no more columns and rows than the image.
Cells<Lab> cellColours(
    const QImage& words, const QSize& grid, const RowLoops& loops = fastestRowLoops());

/// Stretches \a cells to 0 to 1, linearly; uniform cells become 0.
void stretch(Cells<double>& cells);

/// A place between the centres of two neighbouring cells along an axis.
struct Interpolation {
    int first; ///< the cell before
    int second; ///< the cell after, or the same at the end
    double share; ///< of the way from the first to the second, 0 to 1
};

/// Where the centre of \a position, one of \a positions, lies between the centres of \a cells cells
/// that fill the same length. Before the first centre that is the first cell, after the last centre the last one.
inline Interpolation interpolationAt(int position, int positions, int cells)
{
    const double place = std::clamp(
        (position + 0.5) * cells / positions - 0.5, 0.0, static_cast<double>(cells - 1));
    const int first = static_cast<int>(place);
    return { first, std::min(first + 1, cells - 1), place - first };
}

/// Interpolates linearly: \a first for a \a share of 0, \a second for 1.
inline double interpolated(double first, double second, double share)
{
    return first + (second - first) * share;
}

/// Enlarges \a cells to \a size, by bilinear interpolation between the centres of cells.
Cells<double> enlarged(const Cells<double>& cells, const QSize& size);

/// Writes \a cells, whose values are 0 to 1, into \a map, enlarged by bilinear interpolation
/// between the centres of cells, as opaque grey: 255 times the value, rounded. Rows are interpolated
/// in double precision, then columns in single precision. \pre \a map has 32 bits per pixel and
/// no fewer rows and columns than there are cells.
void writeEnlarged(
    const Cells<double>& cells, QImage& map, const RowLoops& loops = fastestRowLoops());

} // namespace vx::kernels
