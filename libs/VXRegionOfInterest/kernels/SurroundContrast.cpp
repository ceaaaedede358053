#include "ExactArithmetic.h"

#include "SurroundContrast.h"

#include "IntegralRows.h"
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
