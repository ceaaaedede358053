#pragma once

#include "../RowLoops.h"
#include "../image/AlignedArray.h"
#include "FilterBuffers.h"

#include <QImage>

#include <array>

namespace vx::kernels {

/// The floating-point filter of the surround contrast: estimates of the contrasts, each with a bound of its error, and
/// the grey values that are certain in spite of it. See SurroundContrast.h for the idea and its sources.
///
/// The estimates come from sums of red, green and blue, which are whole numbers and so exact in any order; luma and
/// chroma are taken of the means. ExactContrasts adds up luma and chroma, which are rounded at every step. So the two
/// differ by no more than rounding, FilterErrorBound.h bounds that, and since contrasts are stretched to no more than
/// 256 grey values, nearly all images are certain throughout, for a fraction of the time.
class FloatingPointFilter {
public:
    /// Whether sums over whole surrounds fit into the words that \a loops keep them in: not for images of
    /// more than a quarter of a million rows, or up to a million, depending on the processor.
    static bool appliesTo(const QSize& size, const RowLoops& loops);

    /// Estimates all contrasts. \pre \a image has 32 bits per pixel and is not null, and appliesTo() is true.
    FloatingPointFilter(const QImage& image, const RowLoops& rowLoops);

    /// The estimated contrasts of row \a y.
    const double* row(int y) const;

    /// How far the estimates in row \a y may be from ExactContrasts.
    ErrorBound errorBound(int y) const;

    /// Fills \a greyMap with the contrasts, stretched to grey values, as long as all of them are certain.
    /// \return false if one is not; then \a greyMap holds nothing of use.
    bool stretchIfCertain(QImage& greyMap) const;

private:
    static constexpr std::size_t smoothedCount = 3;

    void makeScales();
    void estimate();
    void updateRows(int first, int last, bool adds);
    SurroundSums sums() const;
    void smoothRow(int y);
    PackedRow smoothedRow(int y) const;
    double greatestLengthError() const;

    const QImage& words;
    const RowLoops& loops;
    const int width;
    const int height;
    AlignedArray<double> values;
    AlignedArray<double> sumScales;
    AlignedArray<double> squareScales;
    AlignedArray<double> columnFactors; ///< of the error bound
    AlignedArray<QRgb> noPixels;
    PackedRowBuffer noRow;
    std::array<PackedRowBuffer, smoothedCount> smoothed;
    PackedRowBuffer evenColumns;
    PackedRowBuffer oddColumns;
    PrefixSumsBuffer left;
    PrefixSumsBuffer right;
    Range valueRange = rangeOfNoContrasts;
};

} // namespace vx::kernels
