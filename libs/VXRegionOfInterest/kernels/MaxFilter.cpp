#include "MaxFilter.h"

#include "ColourSpreading.h"
#include "GreySpreading.h"
#include "PixelWords.h"

#include <algorithm>

namespace {

using namespace vx::kernels;

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

// The red values above the threshold. \return whether those pixels are opaque grey: then their red value
// is the whole pixel.
bool readKeys(const QImage& source, int threshold, const RowLoops& loops, BytePlane& keys)
{
    const QRgb alwaysSet = bitsAlwaysSet(source);
    for (int y = 0; y < source.height(); ++y) {
        if (!loops.readKeys(wordRow(source, y), source.width(), threshold, alwaysSet, keys.row(y)))
            return false;
    }
    return true;
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
    BytePlane keys = uninitializedPlane(source.size());
    if (readKeys(source, threshold, loops, keys)) {
        QImage result = sameWithoutPixels(source);
        spreadKeys(
            keys, arm, loops, [&](int y, const quint8* alongRow, const quint8* alongColumns) {
                loops.spreadRow(alongRow, alongColumns, source.width(), wordRow(source, y),
                    writableWordRow(result, y));
            });
        return result;
    }
    QImage result = source.copy();
    spreadColours(source, arm, threshold, result);
    return result;
}

void vx::kernels::maxFilter(BytePlane& levels, int arm, int threshold, const RowLoops& loops)
{
    const QSize size(levels.width, levels.height);
    BytePlane keys = uninitializedPlane(size);
    const bool spreads = loops.keepAbove(levels.values.get(),
        static_cast<std::ptrdiff_t>(byteCount(size)), threshold, keys.values.get());
    if (arm < 1 || !spreads)
        return;
    spreadKeys(keys, arm, loops, [&](int y, const quint8* alongRow, const quint8* alongColumns) {
        quint8* const row = levels.row(y);
        loops.writeMaxima(row, alongRow, levels.width, row);
        loops.writeMaxima(row, alongColumns, levels.width, row);
    });
}
