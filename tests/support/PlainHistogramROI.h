#pragma once

#include <QImage>

namespace support {

/// The settings of VXHistogramROI, with its defaults.
struct HistogramSettings {
    double chiSquareThreshold = 0.67;
    int verticalBlocks = 11;
    int horizontalBlocks = 15;
    double minHeight = 0.25;
    double minWidth = 0.5;
    int bin1 = 32;
    int bin2 = 32;
};

/// The map of VXHistogramROI, computed block by block without its classes: histograms as tables,
/// regions as labels.
/// \pre 1 to 100 blocks each way, and \a image, of 32 bits per pixel, has as many pixels at least.
QImage plainHistogramMap(const QImage& image, const HistogramSettings& settings);

} // namespace support
