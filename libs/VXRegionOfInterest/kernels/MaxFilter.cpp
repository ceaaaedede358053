#include "MaxFilter.h"

#include "PixelWords.h"
#include "SlidingMaximum.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace {

using namespace vx::kernels;

// A pixel that is read from or set in an RGB32 image is opaque, whatever its word holds.
QRgb bitsAlwaysSet(const QImage& image)
{
    return image.format() == QImage::Format_RGB32 ? opaqueBlack : 0;
}

// Bytes that nobody fills with zeros first.
std::unique_ptr<quint8[]> uninitializedBytes(std::size_t count)
{
    return std::unique_ptr<quint8[]>(new quint8[count]);
}

// The maxima of bytes over windows that reach an arm to either side. They come from maxima over 1, 2,
// 4, 8 ... positions, each made of the one before; two of the last that fits cover a window. So the
// cost hardly depends on the arm, and all of it is maxima of bytes side by side.
class SlidingByteMaximum {
public:
    // For `length` positions of `lanes` bytes each; the lanes are independent of each other.
    SlidingByteMaximum(int length, int lanes, int arm, const RowLoops& rowLoops)
        : loops(rowLoops)
        , lanesPerPosition(lanes)
        , positions(length)
        , reach(std::min(arm, length - 1))
        , byteCount((positions + 2 * reach) * lanesPerPosition)
        , covered(uninitializedBytes(static_cast<std::size_t>(byteCount)))
    {
    }

    // Where the bytes are to be written; beyond both ends there are zeros.
    quint8* bytes()
    {
        const auto margin = reach * lanesPerPosition;
        std::fill_n(covered.get(), margin, quint8 { 0 });
        std::fill_n(covered.get() + byteCount - margin, margin, quint8 { 0 });
        return covered.get() + margin;
    }

    void writeMaxima(quint8* maxima)
    {
        if (reach == positions - 1) {
            writeMaximaOfAll(maxima);
            return;
        }
        const std::ptrdiff_t window = 2 * reach + 1;
        std::ptrdiff_t count = byteCount;
        std::ptrdiff_t span = 1;
        for (; 2 * span <= window; span *= 2) {
            count -= span * lanesPerPosition;
            write(span, count, covered.get());
        }
        write(window - span, positions * lanesPerPosition, maxima);
    }

private:
    // Every window reaches over all positions: folds them in half until one is left.
    void writeMaximaOfAll(quint8* maxima)
    {
        quint8* const all = covered.get() + reach * lanesPerPosition;
        for (std::ptrdiff_t count = positions; count > 1; count = (count + 1) / 2) {
            const std::ptrdiff_t half = (count + 1) / 2 * lanesPerPosition;
            loops.writeMaxima(all, all + count / 2 * lanesPerPosition, half, all);
        }
        for (std::ptrdiff_t i = 0; i < positions; ++i)
            std::copy_n(all, lanesPerPosition, maxima + i * lanesPerPosition);
    }

    void write(std::ptrdiff_t offset, std::ptrdiff_t count, quint8* maxima) const
    {
        loops.writeMaxima(covered.get(), covered.get() + offset * lanesPerPosition, count, maxima);
    }

    const RowLoops& loops;
    std::ptrdiff_t lanesPerPosition;
    std::ptrdiff_t positions;
    std::ptrdiff_t reach;
    std::ptrdiff_t byteCount;
    std::unique_ptr<quint8[]> covered;
};

// Spreads opaque grey pixels, whose red value is the whole pixel.
class GreySpreading {
public:
    GreySpreading(const QImage& sourceImage, const RowLoops& rowLoops)
        : source(sourceImage)
        , loops(rowLoops)
        , width(source.width())
        , height(source.height())
        , keys(uninitializedBytes(pixelCount()))
    {
    }

    // Reads the red values above the threshold; returns whether all of those pixels are opaque grey.
    bool readKeys(int threshold)
    {
        const QRgb alwaysSet = bitsAlwaysSet(source);
        for (int y = 0; y < height; ++y) {
            if (!loops.readKeys(
                    wordRow(source, y), width, threshold, alwaysSet, keys.get() + offsetOf(y)))
                return false;
        }
        return true;
    }

    void writeInto(QImage& result, int arm)
    {
        const auto rowMaxima = uninitializedBytes(pixelCount());
        SlidingByteMaximum row(width, 1, arm, loops);
        for (int y = 0; y < height; ++y) {
            std::copy_n(keys.get() + offsetOf(y), width, row.bytes());
            row.writeMaxima(rowMaxima.get() + offsetOf(y));
        }
        turnIntoColumnMaxima(arm);
        for (int y = 0; y < height; ++y)
            loops.spreadRow(rowMaxima.get() + offsetOf(y), keys.get() + offsetOf(y), width,
                wordRow(source, y), writableWordRow(result, y));
    }

private:
    // Columns that are worked on side by side.
    static constexpr int stripColumns = 128;

    void turnIntoColumnMaxima(int arm)
    {
        SlidingByteMaximum strip(height, stripColumns, arm, loops);
        const auto maxima = uninitializedBytes(static_cast<std::size_t>(height) * stripColumns);
        for (int x = 0; x < width; x += stripColumns) {
            const int columns = std::min(stripColumns, width - x);
            quint8* const bytes = strip.bytes();
            for (std::ptrdiff_t y = 0; y < height; ++y)
                std::copy_n(keys.get() + offsetOf(y) + x, columns, bytes + y * stripColumns);
            strip.writeMaxima(maxima.get());
            for (std::ptrdiff_t y = 0; y < height; ++y)
                std::copy_n(maxima.get() + y * stripColumns, columns, keys.get() + offsetOf(y) + x);
        }
    }

    std::size_t pixelCount() const
    {
        return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    }
    std::ptrdiff_t offsetOf(std::ptrdiff_t y) const { return y * width; }

    const QImage& source;
    const RowLoops& loops;
    int width;
    int height;
    std::unique_ptr<quint8[]> keys;
};

// Spreads pixels of any colour. A key holds a red value and says where it comes first, so that of equal
// reds the earlier one wins.
class ColourSpreading {
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
    using Key = quint64;

    // Rows or columns that are worked on side by side.
    static constexpr std::size_t lanes = 64;

    // The complement of the position: of equal reds, the earlier has the greater key.
    Key keyOf(QRgb pixel, std::size_t position) const
    {
        if (qRed(pixel) <= threshold)
            return 0;
        return static_cast<Key>(qRed(pixel)) << 32U | ~static_cast<quint32>(position);
    }
    static int redOf(Key key) { return static_cast<int>(key >> 32U); }
    static int positionOf(Key key) { return static_cast<int>(~static_cast<quint32>(key)); }

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

// For formats in which a pixel that was set may read differently: each pixel meets its candidates
// in scan order and is read anew whenever one overwrites it.
void spreadThroughPixels(const QImage& source, int arm, int threshold, QImage& result)
{
    const QImage values = toPixelValues(source);
    for (int y = 0; y < source.height(); ++y) {
        for (int x = 0; x < source.width(); ++x) {
            int red = qRed(values.pixel(x, y));
            const auto meet = [&](int otherX, int otherY) {
                const QRgb other = wordRow(values, otherY)[otherX];
                if (qRed(other) <= threshold || qRed(other) <= red)
                    return;
                result.setPixel(x, y, other);
                red = qRed(result.pixel(x, y));
            };
            for (int above = std::max(y - arm, 0); above < y; ++above)
                meet(x, above);
            for (int beside = std::max(x - arm, 0); beside < std::min(x + arm + 1, source.width());
                 ++beside)
                meet(beside, y);
            for (int below = y + 1; below < std::min(y + arm + 1, source.height()); ++below)
                meet(x, below);
        }
    }
}

} // namespace

QImage vx::kernels::maxFilter(const QImage& source, int arm, int threshold, const RowLoops& loops)
{
    const bool isIndexed = source.pixelFormat().colorModel() == QPixelFormat::Indexed;
    if (arm < 1 || isIndexed || source.isNull())
        return source;

    const bool holdsWords
        = source.format() == QImage::Format_ARGB32 || source.format() == QImage::Format_RGB32;
    if (!holdsWords) {
        QImage result = source.copy();
        spreadThroughPixels(source, arm, threshold, result);
        return result;
    }
    // Where all pixels are alike, none is below another.
    if (isOneWord(source))
        return source;
    GreySpreading greySpreading(source, loops);
    if (greySpreading.readKeys(threshold)) {
        QImage result = sameWithoutPixels(source);
        greySpreading.writeInto(result, arm);
        return result;
    }
    QImage result = source.copy();
    ColourSpreading(source, arm, threshold).writeInto(result);
    return result;
}
