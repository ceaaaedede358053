#include "ColourDilation.h"

#include "../image/PixelWords.h"
#include "SlidingMaximum.h"

#include <algorithm>

namespace {

using namespace vx::kernels;

// Keys of pixels of any colour: the red value in the upper bits and, below it, the distance from the last position of
// the row or column, so that of equal reds the earlier one is greater. Keys are signed, because every processor compares
// vectors of signed numbers, and never negative.
template <typename Key, int positionBits> struct ColourKeys {
    static constexpr Key lastPosition = (Key { 1 } << positionBits) - 1;

    static Key keyOf(QRgb pixel, int position, int threshold)
    {
        return qRed(pixel) <= threshold
            ? 0
            : (static_cast<Key>(qRed(pixel)) << positionBits) + (lastPosition - position);
    }
    static int redOf(Key key) { return static_cast<int>(key >> positionBits); }
    static int positionOf(Key key) { return static_cast<int>(lastPosition - (key & lastPosition)); }
};

// Whether the pixel of the column comes to bear: scan order takes the column above row y first, then the row, then the
// column below.
template <typename Keys, typename Key> bool isColumnFirst(Key row, Key column, int y)
{
    return Keys::redOf(column) > Keys::redOf(row)
        || (Keys::redOf(column) == Keys::redOf(row) && Keys::positionOf(column) < y);
}

template <typename Key, int positionBits>
void dilateThroughKeys(
    const QImage& source, int radius, int threshold, const RowLoops& loops, QImage& result)
{
    using Keys = ColourKeys<Key, positionBits>;
    const int width = source.width();
    const QRgb alphaMask = alphaMaskOf(source);
    KeyPlane<Key> columnKeys(width, source.height());
    for (int y = 0; y < source.height(); ++y)
        std::transform(wordRow(source, y), wordRow(source, y) + width, columnKeys.row(y),
            [=](QRgb pixel) { return Keys::keyOf(pixel, y, threshold); });

    const AlignedArray<Key> rowKeys(static_cast<std::size_t>(width));
    MaximaAlongRow<Key> alongRow(width, radius, loops);
    MaximaDownColumns<Key> downColumns(columnKeys, radius, loops);
    for (int y = 0; y < source.height(); ++y) {
        const QRgb* const pixels = wordRow(source, y);
        for (int x = 0; x < width; ++x)
            rowKeys[static_cast<std::size_t>(x)] = Keys::keyOf(pixels[x], x, threshold);
        const Key* const along = alongRow.of(rowKeys.get());
        const Key* const down = downColumns.next(y);
        QRgb* const target = writableWordRow(result, y);
        for (int x = 0; x < width; ++x) {
            if (Keys::redOf(std::max(along[x], down[x])) <= qRed(pixels[x]))
                continue;
            const QRgb winner = isColumnFirst<Keys>(along[x], down[x], y)
                ? wordRow(source, Keys::positionOf(down[x]))[x]
                : pixels[Keys::positionOf(along[x])];
            target[x] = alphaMask | winner;
        }
    }
}

} // namespace

void vx::kernels::dilateColours(
    const QImage& source, int radius, int threshold, const RowLoops& loops, QImage& result)
{
    constexpr int bitsOfFew = 23;
    if (std::max(source.width(), source.height()) <= (1 << bitsOfFew))
        dilateThroughKeys<qint32, bitsOfFew>(source, radius, threshold, loops, result);
    else
        dilateThroughKeys<qint64, 32>(source, radius, threshold, loops, result);
}
