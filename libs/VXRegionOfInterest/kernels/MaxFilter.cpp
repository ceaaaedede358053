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
    spreadColours(source, arm, threshold, result);
    return result;
}
