#pragma once

#include <QImage>

namespace benchmarks {

/// The edge method written out plainly: pixel by pixel, through QImage::pixel and QImage::setPixel.
QImage literalEdges(const QImage& image);

/// Surround contrast written out plainly: whole planes and integral images as lists of rows.
QImage literalContrast(const QImage& image);

/// What VXSalienzMixer::analyze gives with its defaults and without scaling, from the plain way of
/// every method. \pre \a image has 32 bits per pixel and is at least as large as the grid of blocks.
QImage literalAnalysis(const QImage& image);

} // namespace benchmarks
