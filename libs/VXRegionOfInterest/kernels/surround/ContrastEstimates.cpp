#include "../image/ExactArithmetic.h"

#include "ContrastEstimates.h"

#include "../image/Levels.h"
#include "../image/PixelWords.h"
#include "ContrastTolerance.h"
#include "SurroundSpan.h"

#include <algorithm>
#include <climits>
#include <cmath>

// A word of a run's sums holds two columns for each column of the run so far, in each row of the surround,
// and is read as a signed number. No surround has more rows than the image.
bool vx::kernels::ContrastEstimates::canEstimate(const QSize& size, const RowLoops& loops)
{
    const int mostOfRow = 2 * loops.surround.runLength * 255;
    return size.height() <= INT_MAX / mostOfRow;
}

vx::kernels::ContrastEstimates::ContrastEstimates(const QImage& image, const RowLoops& rowLoops)
    : words(image)
    , loops(rowLoops)
    , width(image.width())
    , height(image.height())
    , values(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) + rowMargin)
    , sumScales(withMargin(width), 1.0)
    , squareScales(withMargin(width), 1.0)
    , columnTolerances(withMargin(width), 1.0)
    , noPixels(static_cast<std::size_t>(width), 0)
    , noRow(width)
    , smoothed { PackedRowBuffer(width), PackedRowBuffer(width), PackedRowBuffer(width) }
    , movedEven(width / 2 + 1)
    , movedOdd(width / 2 + 1)
    , left((width + 1) / 2 + 1)
    , right(width / 2)
{
    makeScales();
    estimate();
}

const double* vx::kernels::ContrastEstimates::row(int y) const
{
    return values.get() + static_cast<std::ptrdiff_t>(y) * width;
}

// Squares of lengths a and b differ by |a - b| · (a + b). With t the tolerance of the length a, that is
// at most t · (2a + t), and 2a is at most a² / 32 + 32. For t up to 1 it is at
// most t · (a² / 32 + 33); writeLevels() sees to that.
vx::kernels::Tolerance vx::kernels::ContrastEstimates::tolerance(int y) const
{
    const double ofLength = lengthTolerance(rowTolerance(y, width, height));
    return { columnTolerances.get(), ofLength / 32, ofLength * 33, squareRounding };
}

// How far lengths may be off by anywhere in the image.
double vx::kernels::ContrastEstimates::greatestLengthTolerance() const
{
    double ofRows = 0;
    for (int y = 0; y < height; ++y)
        ofRows = std::max(ofRows, rowTolerance(y, width, height));
    const double ofColumns
        = *std::max_element(columnTolerances.get(), columnTolerances.get() + width);
    return lengthTolerance(ofRows * ofColumns);
}

// Lengths may be off by more than tolerance() allows for, in images of more than four million columns. The
// range, of two squares that are off by as much each, is never certain then.
bool vx::kernels::ContrastEstimates::writeLevels(QImage& levels) const
{
    const double ofLength = greatestLengthTolerance();
    const auto toleranceOf = [=](double estimate) {
        return ofLength * (2 * std::sqrt(estimate) + ofLength) + squareRounding;
    };
    const double ofLeast = toleranceOf(valueRange.least);
    const double ofRange = ofLeast + toleranceOf(valueRange.greatest);
    const double difference = valueRange.greatest - valueRange.least;
    const int range = static_cast<int>(difference - ofRange);
    if (range != static_cast<int>(difference + ofRange))
        return false;
    if (range == 0) {
        levels.fill(0);
        return true;
    }
    for (int y = 0; y < height; ++y) {
        Tolerance inRow = tolerance(y);
        inRow.floor += ofLeast;
        if (!loops.surround.writeLevels(
                row(y), width, inRow, valueRange.least, range, writableLevelRow(levels, y)))
            return false;
    }
    return true;
}

void vx::kernels::ContrastEstimates::makeScales()
{
    for (int x = 0; x < width; ++x) {
        const SurroundSpan columns = surroundSpan(x, width);
        const double weights = smoothingWeights(x, width);
        sumScales[static_cast<std::size_t>(x)] = weights / columns.count();
        squareScales[static_cast<std::size_t>(x)] = 1.0 / (weights * weights);
        columnTolerances[static_cast<std::size_t>(x)] = columnTolerance(columns);
    }
}

void vx::kernels::ContrastEstimates::estimate()
{
    SurroundSpan before { 0, -1 };
    smoothRow(0);
    for (int y = 0; y < height; ++y) {
        const SurroundSpan rows = surroundSpan(y, height);
        moveRows(before.last + 1, rows.last, true);
        moveRows(before.first, rows.first - 1, false);
        before = rows;
        smoothRow(y + 1);
        const double weights = smoothingWeights(y, height);
        const SurroundScale scale { sumScales.get(), squareScales.get(), weights / rows.count(),
            1.0 / (weights * weights) };
        loops.surround.estimateContrasts(width, surrounds(),
            { smoothedRow(y - 1), smoothedRow(y), smoothedRow(y + 1) }, scale,
            values.get() + static_cast<std::ptrdiff_t>(y) * width, valueRange);
    }
}

// Surrounds get or lose two rows at most from one row to the next.
void vx::kernels::ContrastEstimates::moveRows(int first, int last, bool adds)
{
    if (first > last)
        return;
    const QRgb* const second = first < last ? wordRow(words, last) : noPixels.get();
    loops.surround.moveSurrounds(wordRow(words, first), second, width, adds, surrounds());
}

vx::kernels::Surrounds vx::kernels::ContrastEstimates::surrounds() const
{
    return { { movedEven.row(), movedOdd.row() }, left.sums(), right.sums() };
}

void vx::kernels::ContrastEstimates::smoothRow(int y)
{
    if (y < height)
        loops.surround.smoothAlong(wordRow(words, y), width, smoothedRow(y));
}

vx::kernels::PackedRow vx::kernels::ContrastEstimates::smoothedRow(int y) const
{
    const bool isInside = y >= 0 && y < height;
    return isInside ? smoothed[static_cast<std::size_t>(y) % smoothedCount].row() : noRow.row();
}
