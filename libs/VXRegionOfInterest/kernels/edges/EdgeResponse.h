#pragma once

#include "../RowLoops.h"

#include <QImage>

#include <array>

namespace vx::kernels {

/// Weights of a pixel's 3 × 3 neighbourhood, row by row from the upper left, applied as they stand.
using Kernel3x3 = std::array<int, 9>;

/// Writes the response of \a words to \a kernel into \a target; both have 32 bits per pixel and the same
/// size.
///
/// For each inner pixel and each channel, S is the sum of weight times channel over the
/// neighbourhood; the response is (|S red| + |S green| + |S blue|) / \a divisor, truncated, of
/// which the low 8 bits are kept, grey with the alpha of the source pixel. Border pixels repeat
/// their nearest inner pixel. Images without inner pixels, below 3 in width or height, give opaque
/// black. \pre \a divisor is above 0, and the absolute values of the weights sum to at most 128.
void respondToKernel(const QImage& words, const Kernel3x3& kernel, int divisor, QImage& target,
    const RowLoops& loops = fastestRowLoops());

/// Writes the gradient magnitude of two responses into \a target, of the size of \a horizontal; all have 32 bits per
/// pixel.
///
/// The magnitude is the square root of the sum of the squared red values, truncated; its low 8 bits as grey, with
/// the alpha of \a horizontal. \a vertical counts as 0 beyond its edges.
void combineResponses(const QImage& horizontal, const QImage& vertical, QImage& target,
    const RowLoops& loops = fastestRowLoops());

namespace reference {
/// Sums pixel by pixel.
void respondToKernel(const QImage& words, const Kernel3x3& kernel, int divisor, QImage& target);
/// Takes the root pixel by pixel.
void combineResponses(const QImage& horizontal, const QImage& vertical, QImage& target);
} // namespace reference

} // namespace vx::kernels
