#include "ExactArithmetic.h"

#include "SurroundContrast.h"

#include "LumaChroma.h"
#include "PixelWords.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {

using namespace vx::kernels;

using Row = std::vector<double>;

// One row of the three channels: luma, red difference, blue difference.
constexpr std::size_t channelCount = 3;
using ChannelRow = std::array<Row, channelCount>;

std::size_t widthOf(const QImage& words) { return static_cast<std::size_t>(words.width()); }

ChannelRow emptyRow(std::size_t width) { return { Row(width), Row(width), Row(width) }; }

void convertRow(const QImage& words, int y, ChannelRow& row)
{
    const QRgb* const pixels = wordRow(words, y);
    for (std::size_t x = 0; x < widthOf(words); ++x) {
        const LumaChroma colour = lumaChromaOf(pixels[x]);
        row[0][x] = colour.luma;
        row[1][x] = colour.redDifference;
        row[2][x] = colour.blueDifference;
    }
}

// Weights 1, 2, 1 along a row; dividing by 4 is exact as a multiplication.
void smoothAlongRow(const Row& values, Row& smoothed)
{
    const std::size_t last = values.size() - 1;
    if (last == 0) {
        smoothed = values;
        return;
    }
    smoothed[0] = (2 * values[0] + values[1]) / 3;
    for (std::size_t x = 1; x < last; ++x)
        smoothed[x] = (values[x - 1] + 2 * values[x] + values[x + 1]) * 0.25;
    smoothed[last] = (values[last - 1] + 2 * values[last]) / 3;
}

// The smoothed rows of an image, asked for from the top down. Three rows that are smoothed along
// themselves are kept, the least that smoothing down the columns needs.
class SmoothedRows {
public:
    explicit SmoothedRows(const QImage& image)
        : words(image)
        , converted(emptyRow(widthOf(image)))
        , window { converted, converted, converted }
        , smoothed(converted)
    {
    }

    const ChannelRow& at(int y)
    {
        const ChannelRow& here = alongRow(y);
        const bool isFirst = y == 0;
        const bool isLast = y == words.height() - 1;
        for (std::size_t channel = 0; channel < channelCount; ++channel) {
            Row& target = smoothed[channel];
            const Row& middle = here[channel];
            if (isFirst && isLast)
                target = middle;
            else if (isFirst)
                smoothFirst(middle, alongRow(y + 1)[channel], target);
            else if (isLast)
                smoothLast(alongRow(y - 1)[channel], middle, target);
            else
                smooth(alongRow(y - 1)[channel], middle, alongRow(y + 1)[channel], target);
        }
        return smoothed;
    }

private:
    static void smoothFirst(const Row& middle, const Row& below, Row& target)
    {
        for (std::size_t x = 0; x < target.size(); ++x)
            target[x] = (2 * middle[x] + below[x]) / 3;
    }

    static void smoothLast(const Row& above, const Row& middle, Row& target)
    {
        for (std::size_t x = 0; x < target.size(); ++x)
            target[x] = (above[x] + 2 * middle[x]) / 3;
    }

    static void smooth(const Row& above, const Row& middle, const Row& below, Row& target)
    {
        for (std::size_t x = 0; x < target.size(); ++x)
            target[x] = (above[x] + 2 * middle[x] + below[x]) * 0.25;
    }

    const ChannelRow& alongRow(int y)
    {
        const auto slot = static_cast<std::size_t>(y % 3);
        if (rowInSlot[slot] != y) {
            convertRow(words, y, converted);
            for (std::size_t channel = 0; channel < channelCount; ++channel)
                smoothAlongRow(converted[channel], window[slot][channel]);
            rowInSlot[slot] = y;
        }
        return window[slot];
    }

    const QImage& words;
    ChannelRow converted;
    std::array<ChannelRow, 3> window;
    std::array<int, 3> rowInSlot { -1, -1, -1 };
    ChannelRow smoothed;
};

// One row of the integral image, which moves down the image.
class IntegralRow {
public:
    explicit IntegralRow(const QImage& image)
        : words(image)
        , converted(emptyRow(widthOf(image)))
        , sums(converted)
    {
    }

    const ChannelRow& moveTo(int y)
    {
        for (; current < y; ++current)
            addRow(current + 1);
        return sums;
    }

private:
    void addRow(int y)
    {
        convertRow(words, y, converted);
        for (std::size_t channel = 0; channel < channelCount; ++channel) {
            double rowSum = 0;
            for (std::size_t x = 0; x < widthOf(words); ++x) {
                rowSum += converted[channel][x];
                sums[channel][x] += rowSum;
            }
        }
    }

    const QImage& words;
    ChannelRow converted;
    ChannelRow sums;
    int current = -1;
};

// The sums over the surrounds of one row's pixels, whose rows begin with the image: in the left
// half the columns do as well, in the right half they end with it.
void sumSurroundsFromTop(const Row& bottom, Row& sums)
{
    const std::size_t width = sums.size();
    const std::size_t last = width - 1;
    const std::size_t leftHalf = width / 2 + 1;
    for (std::size_t x = 0; x < std::min(leftHalf, width); ++x)
        sums[x] = bottom[std::min(2 * x, last)];
    for (std::size_t x = leftHalf; x < width; ++x)
        sums[x] = bottom[last] - bottom[2 * x - width - 1];
}

// The same for surrounds whose rows begin below the row `above` of the integral image.
void sumSurroundsBelow(const Row& above, const Row& bottom, Row& sums)
{
    const std::size_t width = sums.size();
    const std::size_t last = width - 1;
    const std::size_t leftHalf = width / 2 + 1;
    for (std::size_t x = 0; x < std::min(leftHalf, width); ++x) {
        const std::size_t right = std::min(2 * x, last);
        sums[x] = bottom[right] - above[right];
    }
    for (std::size_t x = leftHalf; x < width; ++x) {
        const std::size_t before = 2 * x - width - 1;
        sums[x] = bottom[last] + above[before] - above[last] - bottom[before];
    }
}

// In the upper half of the image every surround begins with row 0, in the lower half every surround
// ends with the last row. So two sweeps with one moving row of the integral image each are enough,
// and nothing but the contrasts is as large as the image.
class Contrasts {
public:
    explicit Contrasts(const QImage& image)
        : words(image)
        , width(widthOf(image))
        , values(width * static_cast<std::size_t>(image.height()))
        , smoothedRows(image)
        , surroundSums(emptyRow(width))
        , surroundColumns(width)
    {
        for (std::size_t x = 0; x < width; ++x) {
            const std::size_t reach = std::min(x, width - x);
            surroundColumns[x]
                = static_cast<double>(std::min(x + reach, width - 1) - (x - reach) + 1);
        }
        sweep();
    }

    const std::vector<double>& all() const { return values; }

private:
    void sweep()
    {
        const int height = words.height();
        IntegralRow upper(words);
        int y = 0;
        for (; 2 * y <= height && y < height; ++y) {
            const int bottom = std::min(2 * y, height - 1);
            const ChannelRow& sums = upper.moveTo(bottom);
            for (std::size_t channel = 0; channel < channelCount; ++channel)
                sumSurroundsFromTop(sums[channel], surroundSums[channel]);
            writeRow(y, bottom + 1);
        }
        IntegralRow lower(words);
        for (; y < height; ++y) {
            const int top = 2 * y - height;
            const ChannelRow& bottom = upper.moveTo(height - 1);
            const ChannelRow& above = lower.moveTo(top - 1);
            for (std::size_t channel = 0; channel < channelCount; ++channel)
                sumSurroundsBelow(above[channel], bottom[channel], surroundSums[channel]);
            writeRow(y, height - top);
        }
    }

    void writeRow(int y, int surroundRows)
    {
        const ChannelRow& smoothed = smoothedRows.at(y);
        double* const row = &values[static_cast<std::size_t>(y) * width];
        for (std::size_t x = 0; x < width; ++x) {
            const double area = surroundColumns[x] * surroundRows;
            const auto squaredDistance = [&](std::size_t channel) {
                const double distance = surroundSums[channel][x] / area - smoothed[channel][x];
                return distance * distance;
            };
            row[x] = squaredDistance(0) + squaredDistance(1) + squaredDistance(2);
        }
    }

    const QImage& words;
    const std::size_t width;
    std::vector<double> values;
    SmoothedRows smoothedRows;
    ChannelRow surroundSums;
    Row surroundColumns;
};

} // namespace

void vx::kernels::surroundContrast(const QImage& words, QImage& target)
{
    if (words.isNull())
        return;
    const Contrasts contrasts(words);
    const auto [smallest, greatest]
        = std::minmax_element(contrasts.all().begin(), contrasts.all().end());
    const double least = *smallest;
    const int range = static_cast<int>(*greatest - least);

    const double* contrast = contrasts.all().data();
    for (int y = 0; y < target.height(); ++y) {
        QRgb* const row = writableWordRow(target, y);
        for (int x = 0; x < target.width(); ++x, ++contrast) {
            // At most 255, because no truncated difference exceeds the truncated range.
            const int level = range == 0 ? 0 : static_cast<int>(*contrast - least) * 255 / range;
            row[x] = opaqueGrey(level);
        }
    }
}
