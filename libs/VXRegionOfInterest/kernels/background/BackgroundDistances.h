#pragma once

#include "Cells.h"

/// \file
/// Three ways to tell how far a cell is from the background, which is what the border of a
/// picture mostly shows.

namespace vx::kernels {

/// The minimum barrier distance to the border, added up over L, a and b, and stretched: how far the
/// colour must rise and fall on the way out.
///
/// Channels are smoothed with weights 1, 2, 1 along rows and columns. Then three passes over the
/// inner cells, down and right, up and left, down and right, look for ways through the two
/// neighbours that the pass comes from, as in Zhang et al., "Minimum Barrier Salient Object
/// Detection at 80 FPS", ICCV 2015.
Cells<double> barrierDistance(const Cells<Lab>& colours);

/// The Mahalanobis distance to the colours of four bands along the border, each a tenth of the
/// grid, stretched.
///
/// A distance is a share of the largest to that band, and the two smallest of the four are added:
/// what touches the border on one or two sides still differs from the others. After the same
/// authors, who leave out one band.
Cells<double> borderColourDistance(const Cells<Lab>& colours);

/// The geodesic distance to the border, stretched: how much the colour changes on the way out.
///
/// It is found on \a grid, a coarser one, whose cells have the mean colours, and enlarged. A step
/// to one of 8 neighbours costs what their colours differ, less what neighbours differ by anyway:
/// the mean over all cells of the difference to the most similar neighbour. As in Wei et al.,
/// "Geodesic Saliency Using Background Priors", ECCV 2012.
/// \pre \a grid is not empty and has no more columns and rows than \a colours.
Cells<double> geodesicDistance(const Cells<Lab>& colours, const QSize& grid);

} // namespace vx::kernels
