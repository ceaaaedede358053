#pragma once

#include <QImage>
#include <QRect>
#include <QSize>
#include <QVector>

namespace host {

/// One cell of a grid laid over a picture.
struct GridCell {
    int column; ///< from 0, at the left
    int row; ///< from 0, at the top
    QRect
        area; ///< in picture pixels; may be empty where the picture has fewer pixels than the grid has cells
    int level; ///< 0 to 255: 128 for a cell as salient as the average, 255 for twice as much or more
};

/// A grid over a picture, with each cell rated by its share of the map's salience.
struct CellGrid {
    QImage picture; ///< the cells, painted with their levels; about as large as the map
    QVector<GridCell> cells; ///< row by row
};

/// Rates the cells of a grid with VXSalienzClusterer, on the map scaled so that all cells have the same size.
/// \param map the picture's salience map; not null.
/// \param pictureSize size of the picture in pixels; both sides above 0.
/// \param grid columns and rows, each at least 2.
CellGrid rateCells(const QImage& map, const QSize& pictureSize, const QSize& grid);

} // namespace host
