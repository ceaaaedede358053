#include "ExactArithmetic.h"

#include "IntegralRows.h"

#include "LumaChroma.h"
#include "PixelWords.h"

#include <algorithm>
#include <array>

namespace {

using namespace vx::kernels;

constexpr int channelCount = 3;
constexpr int noRow = -2;

// An odd number of cache lines, room for the columns of one half and for the margins.
std::ptrdiff_t strideFor(int width)
{
    constexpr std::ptrdiff_t valuesPerLine = 8;
    const std::ptrdiff_t values = width / 2 + 1 + 2 * integralMargin;
    return (values + valuesPerLine - 1) / valuesPerLine * valuesPerLine | valuesPerLine;
}

} // namespace

// An odd number of cache lines apart, the halves of all channels advance without waiting for each
// other: a processor takes addresses for the same that differ by a multiple of 4 KiB.
vx::kernels::IntegralRowBuffer::IntegralRowBuffer(int width)
    : stride(strideFor(width))
    , values(static_cast<std::size_t>(stride) * 2 * channelCount)
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

// The last buffer begins with the zeros above the first row.
vx::kernels::IntegralRows::IntegralRows(const QImage& image, const RowLoops& rowLoops)
    : words(image)
    , loops(rowLoops)
    , held(rowsAtOnce / 2, Held { IntegralRowBuffer(image.width()), noRow })
    , pixels(rowsAtOnce * pixelStride())
{
    held.back().y = -1;
}

vx::kernels::IntegralRow vx::kernels::IntegralRows::at(int y)
{
    if (Held* const row = find(y))
        return row->sums.row();
    if (Held* const before = find(y - 1)) {
        before->sums.addRow(wordRow(words, y), words.width());
        before->y = y;
        return before->sums.row();
    }
    addEightRows();
    return held.front().sums.row();
}

bool vx::kernels::IntegralRows::holds(int y) { return find(y) != nullptr; }

vx::kernels::IntegralRows::Held* vx::kernels::IntegralRows::find(int y)
{
    const auto isThere = [=](const Held& row) { return row.y == y; };
    const auto found = std::find_if(held.begin(), held.end(), isThere);
    return found == held.end() ? nullptr : &*found;
}

std::size_t vx::kernels::IntegralRows::pixelStride() const
{
    return static_cast<std::size_t>(words.width()) + std::size_t { 2 } * integralMargin;
}

// Below the image its last row is repeated; nobody asks for those sums.
void vx::kernels::IntegralRows::addEightRows()
{
    const int first = held.back().y + 1;
    std::array<const QRgb*, rowsAtOnce> rows {};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const int y = std::min(first + static_cast<int>(i), words.height() - 1);
        rows[i] = rowWithMargins(y, &pixels[i * pixelStride() + integralMargin]);
    }
    std::array<IntegralRow, rowsAtOnce / 2> kept {};
    for (std::size_t i = 0; i < kept.size(); ++i) {
        kept[i] = held[i].sums.row();
        held[i].y = first + 2 * static_cast<int>(i) + 1;
    }
    loops.integrateEightRows(rows.data(), words.width(), kept.data());
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
