#include "ColourSpreading.h"

#include "PixelWords.h"
#include "SlidingMaximum.h"

#include <algorithm>
#include <vector>

namespace {

using namespace vx::kernels;

// Spreads pixels of any colour. A key holds a red value and says where it comes first, so that of equal
// reds the earlier one wins. Keys are signed numbers that are never negative: every processor compares
// vectors of those.
template <typename Key, int positionBits> class ColourSpreading {
public:
    ColourSpreading(const QImage& sourceImage, int armPixels, int redThreshold)
        : source(sourceImage)
        , width(static_cast<std::size_t>(source.width()))
        , height(static_cast<std::size_t>(source.height()))
        , arm(static_cast<std::size_t>(armPixels))
        , threshold(redThreshold)
        , rowKeys(width * height)
    {
    }

    void writeInto(QImage& result)
    {
        for (std::size_t y = 0; y < height; y += lanes)
            findRowKeys(y, std::min(lanes, height - y));
        for (std::size_t x = 0; x < width; x += lanes)
            overwriteColumns(x, std::min(lanes, width - x), result);
    }

private:
    // Rows or columns that are worked on side by side.
    static constexpr std::size_t lanes = 64;

    static constexpr Key lastPosition = (Key { 1 } << positionBits) - 1;

    // How far it is to the last position: of equal reds, the earlier has the greater key.
    Key keyOf(QRgb pixel, std::size_t position) const
    {
        if (qRed(pixel) <= threshold)
            return 0;
        return (static_cast<Key>(qRed(pixel)) << positionBits)
            + (lastPosition - static_cast<Key>(position));
    }
    static int redOf(Key key) { return static_cast<int>(key >> positionBits); }
    static int positionOf(Key key) { return static_cast<int>(lastPosition - (key & lastPosition)); }

    // Scan order meets the column above (x, y) first, then its row, then the column below.
    QRgb winner(Key row, Key column, int x, int y) const
    {
        const bool columnComesFirst
            = redOf(column) > redOf(row) || (redOf(column) == redOf(row) && positionOf(column) < y);
        return columnComesFirst ? wordRow(source, positionOf(column))[x]
                                : wordRow(source, y)[positionOf(row)];
    }

    const QRgb* sourceRow(std::size_t y) const { return wordRow(source, static_cast<int>(y)); }

    void findRowKeys(std::size_t firstRow, std::size_t count)
    {
        std::vector<Key> keys(width * count);
        for (std::size_t lane = 0; lane < count; ++lane) {
            const QRgb* const pixels = sourceRow(firstRow + lane);
            for (std::size_t x = 0; x < width; ++x)
                keys[x * count + lane] = keyOf(pixels[x], x);
        }
        slidingMaximum(keys, width, count, arm);
        for (std::size_t lane = 0; lane < count; ++lane) {
            Key* const row = &rowKeys[(firstRow + lane) * width];
            for (std::size_t x = 0; x < width; ++x)
                row[x] = keys[x * count + lane];
        }
    }

    void overwriteColumns(std::size_t firstColumn, std::size_t count, QImage& result)
    {
        std::vector<Key> keys(height * count);
        for (std::size_t y = 0; y < height; ++y) {
            const QRgb* const pixels = sourceRow(y) + firstColumn;
            for (std::size_t lane = 0; lane < count; ++lane)
                keys[y * count + lane] = keyOf(pixels[lane], y);
        }
        slidingMaximum(keys, height, count, arm);
        for (std::size_t y = 0; y < height; ++y)
            overwriteRow(firstColumn, y, &keys[y * count], count, result);
    }

    void overwriteRow(std::size_t firstColumn, std::size_t y, const Key* columnKeys,
        std::size_t count, QImage& result) const
    {
        QRgb* const pixels = writableWordRow(result, static_cast<int>(y)) + firstColumn;
        const Key* const keys = &rowKeys[y * width + firstColumn];
        const QRgb alwaysSet = bitsAlwaysSet(source);
        for (std::size_t i = 0; i < count; ++i) {
            if (std::max(redOf(keys[i]), redOf(columnKeys[i])) > qRed(pixels[i]))
                pixels[i] = alwaysSet
                    | winner(keys[i], columnKeys[i], static_cast<int>(firstColumn + i),
                        static_cast<int>(y));
        }
    }

    const QImage& source;
    const std::size_t width;
    const std::size_t height;
    const std::size_t arm;
    const int threshold;
    std::vector<Key> rowKeys;
};

} // namespace

void vx::kernels::spreadColours(const QImage& source, int arm, int threshold, QImage& result)
{
    constexpr int bitsOfFew = 23;
    if (std::max(source.width(), source.height()) <= (1 << bitsOfFew))
        ColourSpreading<qint32, bitsOfFew>(source, arm, threshold).writeInto(result);
    else
        ColourSpreading<qint64, 32>(source, arm, threshold).writeInto(result);
}
