#include "MaxFilter.h"

#include "PixelWords.h"
#include "SlidingMaximum.h"

#include <algorithm>
#include <vector>

namespace {

using namespace vx::kernels;

// What a row or a column offers to a pixel: the greatest red above the threshold within reach, 0
// when there is none. Among opaque grey pixels the red value is the whole pixel.
struct GreyKey {
    using Type = quint8;
    static Type of(QRgb pixel, quint32 /*position*/) { return static_cast<Type>(qRed(pixel)); }
    static int red(Type key) { return key; }
    static QRgb winner(Type row, Type column, const QImage& /*source*/, int /*x*/, int /*y*/)
    {
        return opaqueGrey(std::max(row, column));
    }
};

// Among pixels of any colour a key also says where that red comes first, so that of equal reds the
// earlier one wins.
struct PositionKey {
    using Type = quint64;
    // The complement of the position: of equal reds, the earlier has the greater key.
    static Type of(QRgb pixel, quint32 position)
    {
        return static_cast<Type>(qRed(pixel)) << 32U | ~position;
    }
    static int red(Type key) { return static_cast<int>(key >> 32U); }
    static int position(Type key) { return static_cast<int>(~static_cast<quint32>(key)); }

    // Scan order meets the column above (x, y) first, then its row, then the column below.
    static QRgb winner(Type row, Type column, const QImage& source, int x, int y)
    {
        const bool columnComesFirst
            = red(column) > red(row) || (red(column) == red(row) && position(column) < y);
        return columnComesFirst ? wordRow(source, position(column))[x]
                                : wordRow(source, y)[position(row)];
    }
};

// A pixel that is read from or set in an RGB32 image is opaque, whatever its word holds.
QRgb bitsAlwaysSet(const QImage& image)
{
    return image.format() == QImage::Format_RGB32 ? opaqueBlack : 0;
}

template <typename Keys> class Spreading {
public:
    Spreading(const QImage& sourceImage, int armPixels, int redThreshold)
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
    using Key = typename Keys::Type;

    // Rows or columns that are worked on side by side.
    static constexpr std::size_t lanes = 64;

    Key keyOf(QRgb pixel, std::size_t position) const
    {
        return qRed(pixel) > threshold ? Keys::of(pixel, static_cast<quint32>(position)) : Key {};
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
            if (std::max(Keys::red(keys[i]), Keys::red(columnKeys[i])) > qRed(pixels[i]))
                pixels[i] = alwaysSet
                    | Keys::winner(keys[i], columnKeys[i], source,
                        static_cast<int>(firstColumn + i), static_cast<int>(y));
        }
    }

    const QImage& source;
    const std::size_t width;
    const std::size_t height;
    const std::size_t arm;
    const int threshold;
    std::vector<Key> rowKeys;
};

bool spreadsOpaqueGreyOnly(const QImage& source, int threshold)
{
    const QRgb alwaysSet = bitsAlwaysSet(source);
    for (int y = 0; y < source.height(); ++y) {
        const QRgb* const row = wordRow(source, y);
        const bool isGrey = std::all_of(row, row + source.width(), [=](QRgb pixel) {
            return qRed(pixel) <= threshold || (pixel | alwaysSet) == opaqueGrey(qRed(pixel));
        });
        if (!isGrey)
            return false;
    }
    return true;
}

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

QImage vx::kernels::maxFilter(const QImage& source, int arm, int threshold)
{
    QImage result = source.copy();
    const bool isIndexed = source.pixelFormat().colorModel() == QPixelFormat::Indexed;
    if (arm < 1 || isIndexed)
        return result;

    const bool holdsWords
        = source.format() == QImage::Format_ARGB32 || source.format() == QImage::Format_RGB32;
    if (!holdsWords)
        spreadThroughPixels(source, arm, threshold, result);
    else if (spreadsOpaqueGreyOnly(source, threshold))
        Spreading<GreyKey>(source, arm, threshold).writeInto(result);
    else
        Spreading<PositionKey>(source, arm, threshold).writeInto(result);
    return result;
}
