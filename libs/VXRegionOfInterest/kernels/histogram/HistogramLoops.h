#pragma once

#include <QRgb>

namespace vx::kernels {

/// The loops of the chroma histograms.
struct HistogramLoops {
    /// Writes the index of each pixel's bin in a table of so many rows and columns, see countChroma(). \pre
    /// the table has at most 2²³ bins.
    void (*findBins)(const QRgb* pixels, int count, int rows, int columns, quint32* indices);

    /// What findBins() writes for packedLumaChromaOf() of each pixel. \pre there are at most 257 rows and
    /// columns.
    void (*findChromaBins)(const QRgb* pixels, int count, int rows, int columns, quint32* indices);

    /// Adds up four tables of counts, and notes which rows hold nothing but zeros.
    void (*sumTables)(
        const qint32* const* tables, int rows, int columns, double* sums, quint8* emptyRows);
};

} // namespace vx::kernels
