#include "MaxFilter.h"

#include "../image/PixelWords.h"
#include "ColourSpreading.h"
#include "DilationLoops.h"
#include "SlidingMaximum.h"

#include <algorithm>

namespace {

using namespace vx::kernels;

using LevelPlane = KeyPlane<quint8>;

// For formats in which a pixel that was set may read differently: each pixel meets its candidates
// in scan order and is read anew whenever one overwrites it.
void spreadThroughPixels(const QImage& source, int arm, int threshold, QImage& result)
{
    const KeyPlane<QRgb> values(source.width(), source.height());
    for (int y = 0; y < source.height(); ++y) {
        for (int x = 0; x < source.width(); ++x)
            values.row(y)[x] = source.pixel(x, y);
    }
    for (int y = 0; y < source.height(); ++y) {
        for (int x = 0; x < source.width(); ++x) {
            int red = qRed(values.row(y)[x]);
            const auto meet = [&](int otherX, int otherY) {
                const QRgb other = values.row(otherY)[otherX];
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

// Whether all pixels above the threshold are opaque grey: then their red values, which become the keys,
// are the whole pixels.
bool readKeys(const QImage& source, int threshold, const RowLoops& loops, LevelPlane& keys)
{
    const QRgb alwaysSet = bitsAlwaysSet(source);
    for (int y = 0; y < keys.height; ++y) {
        if (!loops.dilation.readKeys(
                wordRow(source, y), keys.width, threshold, alwaysSet, keys.row(y)))
            return false;
    }
    return true;
}

// Calls write(y, along, down) for every row, with the greatest keys in reach of its pixels.
template <typename Write>
void spreadKeys(const LevelPlane& keys, int arm, const RowLoops& loops, const Write& write)
{
    MaximaAlongRow<quint8> alongRow(keys.width, arm, loops);
    MaximaOfRows<quint8> ofRows(keys, arm, loops);
    for (int y = 0; y < keys.height; ++y)
        write(y, alongRow.of(keys.row(y)), ofRows.next(y));
}

QImage spreadWords(const QImage& source, int arm, int threshold, const RowLoops& loops)
{
    LevelPlane keys(source.width(), source.height());
    if (!readKeys(source, threshold, loops, keys)) {
        QImage result = copyOf(source);
        spreadColours(source, arm, threshold, loops, result);
        return result;
    }
    QImage result = sameWithoutPixels(source);
    spreadKeys(keys, arm, loops, [&](int y, const quint8* along, const quint8* down) {
        loops.dilation.spreadRow(
            along, down, keys.width, wordRow(source, y), writableWordRow(result, y));
    });
    return result;
}

} // namespace

QImage vx::kernels::maxFilter(const QImage& source, int arm, int threshold, const RowLoops& loops)
{
    const bool isIndexed = source.pixelFormat().colorModel() == QPixelFormat::Indexed;
    if (source.isNull() || arm < 1 || isIndexed)
        return copyOf(source);
    if (source.format() == QImage::Format_Grayscale8) {
        QImage result = sameWithoutPixels(source); // in large pages, which a copy by Qt is not
        for (int y = 0; y < source.height(); ++y)
            std::copy_n(source.constScanLine(y), source.width(), result.scanLine(y));
        spreadLevels(result, arm, threshold, loops);
        return result;
    }

    const bool holdsWords
        = source.format() == QImage::Format_ARGB32 || source.format() == QImage::Format_RGB32;
    // Where all words are alike, none is below another.
    if (holdsWords)
        return isOneWord(source, loops) ? copyOf(source)
                                        : spreadWords(source, arm, threshold, loops);
    QImage result = copyOf(source);
    spreadThroughPixels(source, arm, threshold, result);
    return result;
}

void vx::kernels::spreadLevels(QImage& levels, int arm, int threshold, const RowLoops& loops)
{
    LevelPlane keys(levels.width(), levels.height());
    bool spreads = false;
    for (int y = 0; y < keys.height; ++y)
        spreads |= loops.dilation.keepAbove(
            levels.constScanLine(y), keys.width, threshold, keys.row(y));
    if (!spreads)
        return;
    spreadKeys(keys, arm, loops, [&](int y, const quint8* along, const quint8* down) {
        quint8* const row = levels.scanLine(y);
        loops.dilation.writeMaxima(row, along, keys.width, row);
        loops.dilation.writeMaxima(row, down, keys.width, row);
    });
}
