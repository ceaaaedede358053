#pragma once

#include "Cells.h"

/// \file
/// Three distances of a cell from the background, which is what the border of a picture mostly shows. Each is stretched
/// to 0 to 1; writeBackgroundMap() adds them with equal weights.

namespace vx::kernels {

/// The minimum barrier distance to the border, summed over L, a and b: of all paths to the border, the least
/// difference of the highest and the lowest value on the path.
///
/// Channels are smoothed with weights 1, 2, 1 along rows and columns. The distance is approximated by three raster
/// scans of the inner cells, forward, backward, forward, which extend the paths of the two neighbours already
/// visited, as in Zhang et al., "Minimum Barrier Salient Object Detection at 80 FPS", ICCV 2015.
Cells<double> barrierDistance(const Cells<Lab>& colours);

/// The Mahalanobis distance to the colours of four bands along the border, each a tenth of the grid wide.
///
/// The distances to a band are divided by the largest of them, and the two smallest of the four are added:
/// what touches the border on one or two sides still differs from the others. After the same
/// authors, who leave out one band.
Cells<double> borderColourDistance(const Cells<Lab>& colours);

/// The geodesic distance to the border: the length of the shortest path, where a step to one of 8 neighbours
/// costs the difference of the colours, less what neighbours differ by anyway: the mean over all cells of the
/// difference to the most similar neighbour.
///
/// It is computed on \a grid, a coarser one, whose cells have the mean colours, and enlarged. As in Wei et al.,
/// "Geodesic Saliency Using Background Priors", ECCV 2012.
/// \pre \a grid is not empty and has no more columns and rows than \a colours.
Cells<double> geodesicDistance(const Cells<Lab>& colours, const QSize& grid);

} // namespace vx::kernels
