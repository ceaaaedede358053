#pragma once

#include <QRgb>

namespace vx::kernels {

/// The channels of a row of pixels, deinterleaved into an array for each.
struct PlanarRow {
    /// Red, green and blue.
    qint16* of[3]; // NOLINT(*-avoid-c-arrays): loops take no functions from std::array
};

/// The loops of the edge response.
struct EdgeLoops {
    /// Deinterleaves a row of pixels into its channels.
    void (*deinterleave)(const QRgb* pixels, int count, const PlanarRow& channels);

    /// Writes the responses of a row's inner pixels to a 3 × 3 kernel, see respondToKernel(). \a rows are
    /// the row above, the row itself and the row below.
    void (*respondAlongRow)(const PlanarRow* rows, int width, const qint16* kernel, int divisor,
        const QRgb* source, QRgb* target);

    /// Writes the magnitudes of two rows of responses, see combineResponses().
    void (*writeMagnitudes)(const QRgb* across, const QRgb* down, int count, QRgb* magnitudes);
};

} // namespace vx::kernels
