#include "ExactArithmetic.h"

#include "SurroundContrast.h"

#include "LumaChroma.h"
#include "PixelWords.h"

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

namespace {

using namespace vx::kernels;

constexpr int channelCount = 3;

// Owns a ChannelRow of zeros.
class ChannelRowBuffer {
public:
    explicit ChannelRowBuffer(int width)
        : values(static_cast<std::size_t>(channelCount * width))
        , view { values.data(), width }
    {
    }

    const ChannelRow& row() const { return view; }

private:
    std::vector<double> values;
    ChannelRow view;
};

// Owns an IntegralRow of zeros, with the margins that its loops need.
class IntegralRowBuffer {
public:
    explicit IntegralRowBuffer(int width)
        : stride((width + 1) / 2 + 2 * integralMargin)
        , values(static_cast<std::size_t>(2 * channelCount * stride))
    {
    }

    IntegralRow row() { return { values.data() + integralMargin, stride }; }

    void addRow(const QRgb* pixels, int width)
    {
        std::array<double, channelCount> rowSums {};
        for (int x = 0; x < width; ++x) {
            const LumaChroma colour = lumaChromaOf(pixels[x]);
            addTo(rowSums[0], colour.luma, 0, x);
            addTo(rowSums[1], colour.redDifference, 1, x);
            addTo(rowSums[2], colour.blueDifference, 2, x);
        }
    }

private:
    void addTo(double& rowSum, double value, int channel, int x)
    {
        rowSum += value;
        row().values[(2 * channel + x % 2) * stride + x / 2] += rowSum;
    }

    std::ptrdiff_t stride;
    std::vector<double> values;
};

// Rows of an integral image, every second one in ascending order, from the first or the second on;
// the last row may follow directly upon the one before it. Two rows are held at a time.
class IntegralRows {
public:
    IntegralRows(const QImage& image, const RowLoops& rowLoops)
        : words(image)
        , loops(rowLoops)
        , middle(image.width())
        , end(image.width())
        , pixels(rowsAtOnce * pixelStride())
    {
    }

    IntegralRow at(int y)
    {
        if (y == middleRow)
            return middle.row();
        if (y == middleRow + 1 && middleRow > 0) {
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

    bool holds(int y) const { return y == middleRow || y == endRow; }

private:
    static constexpr std::size_t rowsAtOnce = 4;

    std::size_t pixelStride() const
    {
        return static_cast<std::size_t>(words.width() + 2 * integralMargin);
    }

    void addRow(int y, IntegralRowBuffer& sums, int& current) const
    {
        sums.addRow(wordRow(words, y), words.width());
        current = y;
    }

    // Below the image its last row is repeated; nobody asks for those sums.
    void addFourRows()
    {
        std::array<const QRgb*, rowsAtOnce> rows {};
        for (std::size_t i = 0; i < rowsAtOnce; ++i)
            rows[i] = rowWithMargins(std::min(endRow + 1 + static_cast<int>(i), words.height() - 1),
                &pixels[i * pixelStride() + integralMargin]);
        loops.integrateFourRows(rows.data(), words.width(), middle.row(), end.row());
        middleRow = endRow + 2;
        endRow += 4;
    }

    // What lies beside a row is read, though not used. Between other rows that is pixels of theirs.
    const QRgb* rowWithMargins(int y, QRgb* copy) const
    {
        const QRgb* const row = wordRow(words, y);
        const bool liesBetween = y > 0 && y < words.height() - 1;
        if (liesBetween && words.width() >= integralMargin)
            return row;
        std::copy_n(row, words.width(), copy);
        return copy;
    }

    const QImage& words;
    const RowLoops& loops;
    IntegralRowBuffer middle;
    IntegralRowBuffer end;
    int middleRow = -1;
    int endRow = -1;
    std::vector<QRgb> pixels;
};

// In the upper half of the image every surround begins with row 0, in the lower half every surround
// ends with the last row. So two sweeps with one moving row of the integral image each are enough,
// and nothing but the contrasts is as large as the image.
class Contrasts {
public:
    Contrasts(const QImage& image, const RowLoops& rowLoops)
        : words(image)
        , loops(rowLoops)
        , width(static_cast<std::size_t>(image.width()))
        , values(new double[width * static_cast<std::size_t>(image.height())])
        , alongRow(image.width())
        , weightedSum(image.width())
        , surroundWidths(width)
        , widthReciprocals(width)
        , upper(image, rowLoops)
        , lower(image, rowLoops)
    {
        for (std::size_t x = 0; x < width; ++x) {
            const std::size_t reach = std::min(x, width - x);
            surroundWidths[x]
                = static_cast<double>(std::min(x + reach, width - 1) - (x - reach) + 1);
            widthReciprocals[x] = 1 / surroundWidths[x];
        }
        sweep();
    }

    const Range& range() const { return valueRange; }
    const double* row(int y) const { return &values[static_cast<std::size_t>(y) * width]; }

private:
    void sweep()
    {
        const SurroundColumns columns { surroundWidths.data(), widthReciprocals.data() };
        const SmoothingState state { alongRow.row(), weightedSum.row() };
        loops.beginSmoothing(wordRow(words, 0), words.width(), state);
        int y = 0;
        while (y < words.height()) {
            std::array<ContrastRow, 2> rows { contrastRow(y) };
            const int count = pairsWithNext(y) ? 2 : 1;
            if (count == 2)
                rows[1] = contrastRow(y + 1);
            loops.contrastRows(words.width(), columns, state, rows.data(), count, valueRange);
            y += count;
        }
    }

    bool isUpper(int y) const { return 2 * y <= words.height(); }
    bool isInner(int y) const { return y > 0 && y < words.height() - 1; }

    // The row of the integral image that the surrounds end with in the upper half; the one above
    // their first in the lower half.
    int movingRow(int y) const
    {
        return isUpper(y) ? std::min(2 * y, words.height() - 1) : 2 * y - words.height() - 1;
    }

    bool pairsWithNext(int y) const
    {
        return isInner(y) && isInner(y + 1) && isUpper(y) == isUpper(y + 1)
            && (isUpper(y) ? upper : lower).holds(movingRow(y + 1));
    }

    ContrastRow contrastRow(int y)
    {
        const int height = words.height();
        const bool isLast = y == height - 1;
        ContrastRow row {};
        row.next = isLast ? nullptr : wordRow(words, y + 1);
        row.weights = 4.0 - (y == 0 ? 1 : 0) - (isLast ? 1 : 0);
        row.contrasts = &values[static_cast<std::size_t>(y) * width];
        if (isUpper(y)) {
            row.bottom = upper.at(movingRow(y));
            row.surroundRows = movingRow(y) + 1;
        } else {
            row.bottom = upper.at(height - 1);
            row.above = lower.at(movingRow(y));
            row.surroundRows = height - 1 - movingRow(y);
        }
        return row;
    }

    const QImage& words;
    const RowLoops& loops;
    const std::size_t width;
    std::unique_ptr<double[]> values; // not filled with zeros first: that costs as much as a pass
    ChannelRowBuffer alongRow;
    ChannelRowBuffer weightedSum;
    std::vector<double> surroundWidths;
    std::vector<double> widthReciprocals;
    IntegralRows upper;
    IntegralRows lower;
    Range valueRange { 1073741824, 0 };
};

} // namespace

void vx::kernels::surroundContrast(const QImage& words, QImage& target, const RowLoops& loops)
{
    if (words.isNull())
        return;
    const Contrasts contrasts(words, loops);
    const auto [least, greatest] = contrasts.range();
    const int range = static_cast<int>(greatest - least);
    if (range == 0) {
        target.fill(opaqueBlack);
        return;
    }
    // At most 255, because no truncated difference exceeds the truncated range.
    for (int y = 0; y < target.height(); ++y)
        loops.writeLevels(
            contrasts.row(y), target.width(), least, range, writableWordRow(target, y));
}
