#pragma once

/// \file
/// The names of the salience methods.

/// Names a salience method in a VXSalienzMixer.
///
/// The mixer keeps its methods in a map keyed by this enumeration, so the numeric order is also the
/// order in which it runs and blends them.
enum VXSalienzMethod {
    Sobel = 0, ///< edges and textured areas; the map is black, see VXSobelROI
    Gauss = 1, ///< the centre prior, VXGaussROI
    Histogram = 2, ///< large regions of one colour; its map is subtracted in the blend
    VeryImportantAreas = 3, ///< rectangles that the host marks
    Achanta = 4, ///< colour that differs from its surround
};
