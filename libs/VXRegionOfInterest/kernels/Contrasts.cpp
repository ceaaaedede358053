#include "Contrasts.h"

#include "PixelWords.h"

#include <algorithm>
#include <array>

namespace {

constexpr int channelCount = 3;
constexpr int rowsAtOnce = 4;

} // namespace

vx::kernels::ChannelRowBuffer::ChannelRowBuffer(int width)
    : values(static_cast<std::size_t>(channelCount * width))
    , stride(width)
{
}

vx::kernels::ChannelRow vx::kernels::ChannelRowBuffer::row() { return { values.data(), stride }; }

vx::kernels::Contrasts::Contrasts(const QImage& image, const RowLoops& rowLoops)
    : words(image)
    , loops(rowLoops)
    , width(static_cast<std::size_t>(image.width()))
    , values(uninitializedArray<double>(width * static_cast<std::size_t>(image.height())))
    , alongRow(image.width())
    , weightedSum(image.width())
    , surroundWidths(width)
    , widthReciprocals(width)
    , upper(image, rowLoops)
    , lower(image, rowLoops)
{
    for (std::size_t x = 0; x < width; ++x) {
        const std::size_t reach = std::min(x, width - x);
        surroundWidths[x] = static_cast<double>(std::min(x + reach, width - 1) - (x - reach) + 1);
        widthReciprocals[x] = 1 / surroundWidths[x];
    }
    sweep();
}

const double* vx::kernels::Contrasts::row(int y) const
{
    return &values[static_cast<std::size_t>(y) * width];
}

const vx::kernels::Range& vx::kernels::Contrasts::range() const { return valueRange; }

void vx::kernels::Contrasts::sweep()
{
    const SurroundColumns columns { surroundWidths.data(), widthReciprocals.data() };
    const SmoothingState state { alongRow.row(), weightedSum.row() };
    loops.beginSmoothing(wordRow(words, 0), words.width(), state);
    int y = 0;
    while (y < words.height()) {
        std::array<ContrastRow, rowsAtOnce> rows { contrastRow(y) };
        const int count = areHeldTogether(y) ? rowsAtOnce : 1;
        for (int i = 1; i < count; ++i)
            rows[static_cast<std::size_t>(i)] = contrastRow(y + i);
        loops.contrastRows(words.width(), columns, state, rows.data(), count, valueRange);
        y += count;
    }
}

bool vx::kernels::Contrasts::isUpper(int y) const { return 2 * y <= words.height(); }

// The row of the integral image that the surrounds end with in the upper half; the one above their
// first in the lower half.
int vx::kernels::Contrasts::movingRow(int y) const
{
    return isUpper(y) ? std::min(2 * y, words.height() - 1) : 2 * y - words.height() - 1;
}

// Whether four rows from y on are in the same half, and their moving rows, of which that of y has been
// asked for, are held together. The first and the last row of the image go alone.
bool vx::kernels::Contrasts::areHeldTogether(int y)
{
    const int last = y + rowsAtOnce - 1;
    const bool areInOneHalf = last < words.height() - 1 && isUpper(last) == isUpper(y);
    return y > 0 && areInOneHalf && (isUpper(y) ? upper : lower).holds(movingRow(last));
}

double* vx::kernels::Contrasts::writableRow(int y)
{
    return &values[static_cast<std::size_t>(y) * width];
}

vx::kernels::ContrastRow vx::kernels::Contrasts::contrastRow(int y)
{
    const int height = words.height();
    const bool isLast = y == height - 1;
    ContrastRow row {};
    row.next = isLast ? nullptr : wordRow(words, y + 1);
    row.weights = 4.0 - (y == 0 ? 1 : 0) - (isLast ? 1 : 0);
    row.contrasts = writableRow(y);
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
