#pragma once

#include <QImage>
#include <QVector>

namespace vx::kernels {

/// Fills \a target, an ARGB32 image of the size of \a source, with \a source blurred by \a weights.
///
/// There are two passes, horizontal into the target and vertical within it. For each pixel the sums R, G and
/// B begin at 0; tap k from -n / 2 to n / 2 adds weight times channel of the pixel at column x + k,
/// row R truncated (horizontal pass), or at column x, row k + R truncated (vertical pass), where
/// that lies inside; a tap beyond the weights counts 0. The results are divided by D, truncated,
/// and kept modulo 256, where D is the sum of the weights with every addition truncated to an
/// integer; an infinite or undefined quotient is 0. \pre the weights come from
/// VXGaussianBlur::createGaussianKernel.
void gaussianBlur(const QImage& source, const QVector<double>& weights, QImage& target);

namespace reference {
/// Adds tap by tap.
void gaussianBlur(const QImage& source, const QVector<double>& weights, QImage& target);
} // namespace reference

} // namespace vx::kernels
