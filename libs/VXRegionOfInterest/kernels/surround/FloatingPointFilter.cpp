#include "../image/ExactArithmetic.h"

#include "FloatingPointFilter.h"

#include "../image/GreyMap.h"
#include "../image/PixelWords.h"
#include "FilterErrorBound.h"
#include "SurroundSpan.h"

#include <algorithm>
#include <climits>
#include <cmath>

// Each column of a run adds two columns of the image to a prefix sum, in each row of the surround, and the sum is
// read as a signed number. No surround has more rows than the image.
bool vx::kernels::FloatingPointFilter::appliesTo(const QSize& size, const RowLoops& loops)
{
    const int mostOfRow = 2 * loops.surround.runLength * 255;
    return size.height() <= INT_MAX / mostOfRow;
}

vx::kernels::FloatingPointFilter::FloatingPointFilter(const QImage& image, const RowLoops& rowLoops)
    : words(image)
    , loops(rowLoops)
    , width(image.width())
    , height(image.height())
    , values(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) + rowMargin)
    , sumScales(withMargin(width), 1.0)
    , squareScales(withMargin(width), 1.0)
    , columnFactors(withMargin(width), 1.0)
    , noPixels(static_cast<std::size_t>(width), 0)
    , noRow(width)
    , smoothed { PackedRowBuffer(width), PackedRowBuffer(width), PackedRowBuffer(width) }
    , evenColumns(width / 2 + 1)
    , oddColumns(width / 2 + 1)
    , left((width + 1) / 2 + 1)
    , right(width / 2)
{
    makeScales();
    estimate();
}

const double* vx::kernels::FloatingPointFilter::row(int y) const
{
    return values.get() + static_cast<std::ptrdiff_t>(y) * width;
}

// Squares of lengths a and b differ by |a - b| · (a + b). With t the error of the length a, that is at
// most t · (2a + t). For any c, 2a is at most a² / c + c. So for t up to 1, which stretchIfCertain() ensures,
// the difference is at most t · (a² / c + c + 1).
vx::kernels::ErrorBound vx::kernels::FloatingPointFilter::errorBound(int y) const
{
    constexpr int c = 32;
    const double ofLength = lengthError(rowErrorFactor(y, width, height));
    return { columnFactors.get(), ofLength / c, ofLength * (c + 1), squareRounding };
}

// By how much lengths may be off anywhere in the image.
double vx::kernels::FloatingPointFilter::greatestLengthError() const
{
    double ofRows = 0;
    for (int y = 0; y < height; ++y)
        ofRows = std::max(ofRows, rowErrorFactor(y, width, height));
    const double ofColumns = *std::max_element(columnFactors.get(), columnFactors.get() + width);
    return lengthError(ofRows * ofColumns);
}

// In images of more than four million columns, lengths may be off by more than the 1 that errorBound() allows for.
// Then the range, of two squares that are off by as much each, is never certain.
bool vx::kernels::FloatingPointFilter::stretchIfCertain(QImage& greyMap) const
{
    const double ofLength = greatestLengthError();
    const auto errorOf = [=](double estimate) {
        return ofLength * (2 * std::sqrt(estimate) + ofLength) + squareRounding;
    };
    const double ofLeast = errorOf(valueRange.least);
    const double ofRange = ofLeast + errorOf(valueRange.greatest);
    const double difference = valueRange.greatest - valueRange.least;
    const int range = static_cast<int>(difference - ofRange);
    if (range != static_cast<int>(difference + ofRange))
        return false;
    if (range == 0) {
        greyMap.fill(0);
        return true;
    }
    for (int y = 0; y < height; ++y) {
        ErrorBound inRow = errorBound(y);
        inRow.floor += ofLeast;
        if (!loops.surround.stretchContrasts(
                row(y), width, inRow, valueRange.least, range, writableGreyRow(greyMap, y)))
            return false;
    }
    return true;
}

void vx::kernels::FloatingPointFilter::makeScales()
{
    for (int x = 0; x < width; ++x) {
        const SurroundSpan columns = surroundSpan(x, width);
        const double weights = smoothingWeights(x, width);
        sumScales[static_cast<std::size_t>(x)] = weights / columns.count();
        squareScales[static_cast<std::size_t>(x)] = 1.0 / (weights * weights);
        columnFactors[static_cast<std::size_t>(x)] = columnErrorFactor(columns);
    }
}

void vx::kernels::FloatingPointFilter::estimate()
{
    SurroundSpan before { 0, -1 };
    smoothRow(0);
    for (int y = 0; y < height; ++y) {
        const SurroundSpan rows = surroundSpan(y, height);
        updateRows(before.last + 1, rows.last, true);
        updateRows(before.first, rows.first - 1, false);
        before = rows;
        smoothRow(y + 1);
        const double weights = smoothingWeights(y, height);
        const SurroundScale scale { sumScales.get(), squareScales.get(), weights / rows.count(),
            1.0 / (weights * weights) };
        loops.surround.estimateContrasts(width, sums(),
            { smoothedRow(y - 1), smoothedRow(y), smoothedRow(y + 1) }, scale,
            values.get() + static_cast<std::ptrdiff_t>(y) * width, valueRange);
    }
}

// There are two rows at most.
void vx::kernels::FloatingPointFilter::updateRows(int first, int last, bool adds)
{
    if (first > last)
        return;
    const QRgb* const second = first < last ? wordRow(words, last) : noPixels.get();
    loops.surround.updateSums(wordRow(words, first), second, width, adds, sums());
}

vx::kernels::SurroundSums vx::kernels::FloatingPointFilter::sums() const
{
    return { { evenColumns.row(), oddColumns.row() }, left.sums(), right.sums() };
}

void vx::kernels::FloatingPointFilter::smoothRow(int y)
{
    if (y < height)
        loops.surround.smoothAlong(wordRow(words, y), width, smoothedRow(y));
}

vx::kernels::PackedRow vx::kernels::FloatingPointFilter::smoothedRow(int y) const
{
    const bool isInside = y >= 0 && y < height;
    return isInside ? smoothed[static_cast<std::size_t>(y) % smoothedCount].row() : noRow.row();
}
