#include "ExactArithmetic.h"

#include "IntegralRows.h"

#include "LumaChroma.h"
#include "PixelWords.h"

#include <algorithm>
#include <array>

namespace {

constexpr int channelCount = 3;

} // namespace

vx::kernels::IntegralRowBuffer::IntegralRowBuffer(int width)
    : stride((width + 1) / 2 + 2 * integralMargin)
    , values(static_cast<std::size_t>(2 * channelCount * stride))
{
}

vx::kernels::IntegralRow vx::kernels::IntegralRowBuffer::row()
{
    return { values.data() + integralMargin, stride };
}

void vx::kernels::IntegralRowBuffer::addRow(const QRgb* pixels, int width)
{
    std::array<double, channelCount> rowSums {};
    for (int x = 0; x < width; ++x) {
        const LumaChroma colour = lumaChromaOf(pixels[x]);
        addTo(rowSums[0], colour.luma, 0, x);
        addTo(rowSums[1], colour.redDifference, 1, x);
        addTo(rowSums[2], colour.blueDifference, 2, x);
    }
}

void vx::kernels::IntegralRowBuffer::addTo(double& rowSum, double value, int channel, int x)
{
    rowSum += value;
    row().values[(2 * channel + x % 2) * stride + x / 2] += rowSum;
}

vx::kernels::IntegralRows::IntegralRows(const QImage& image, const RowLoops& rowLoops)
    : words(image)
    , loops(rowLoops)
    , middle(image.width())
    , end(image.width())
    , pixels(rowsAtOnce * pixelStride())
{
}

vx::kernels::IntegralRow vx::kernels::IntegralRows::at(int y)
{
    if (y == middleRow)
        return middle.row();
    const bool isLastAfterMiddle = y == middleRow + 1 && middleRow > 0;
    if (isLastAfterMiddle) {
        addRow(y, middle, middleRow);
        return middle.row();
    }
    if (y == endRow + 1)
        addRow(y, end, endRow);
    if (y == endRow)
        return end.row();
    addFourRows();
    return middle.row();
}

bool vx::kernels::IntegralRows::holds(int y) const { return y == middleRow || y == endRow; }

std::size_t vx::kernels::IntegralRows::pixelStride() const
{
    return static_cast<std::size_t>(words.width() + 2 * integralMargin);
}

void vx::kernels::IntegralRows::addRow(int y, IntegralRowBuffer& sums, int& current) const
{
    sums.addRow(wordRow(words, y), words.width());
    current = y;
}

// Below the image its last row is repeated; nobody asks for those sums.
void vx::kernels::IntegralRows::addFourRows()
{
    std::array<const QRgb*, rowsAtOnce> rows {};
    for (std::size_t i = 0; i < rowsAtOnce; ++i) {
        const int y = std::min(endRow + 1 + static_cast<int>(i), words.height() - 1);
        rows[i] = rowWithMargins(y, &pixels[i * pixelStride() + integralMargin]);
    }
    loops.integrateFourRows(rows.data(), words.width(), middle.row(), end.row());
    middleRow = endRow + 2;
    endRow += 4;
}

// What lies beside a row is read, though not used. Between other rows that is pixels of theirs.
const QRgb* vx::kernels::IntegralRows::rowWithMargins(int y, QRgb* copy) const
{
    const QRgb* const row = wordRow(words, y);
    const bool liesBetween = y > 0 && y < words.height() - 1;
    if (liesBetween && words.width() >= integralMargin)
        return row;
    std::copy_n(row, words.width(), copy);
    return copy;
}
