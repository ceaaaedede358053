#include "Dilation.h"

#include "../image/PixelWords.h"
#include "ColourDilation.h"
#include "DilationLoops.h"
#include "SlidingMaximum.h"

#include <algorithm>

namespace {

using namespace vx::kernels;

using GreyKeys = KeyPlane<quint8>;

// The general way, for formats in which a pixel that was set may read differently: candidates overwrite a pixel in scan
// order, and it is read again after each of them.
void dilatePixels(const QImage& source, int radius, int threshold, QImage& result)
{
    const KeyPlane<QRgb> values(source.width(), source.height());
    for (int y = 0; y < source.height(); ++y) {
        for (int x = 0; x < source.width(); ++x)
            values.row(y)[x] = source.pixel(x, y);
    }
    for (int y = 0; y < source.height(); ++y) {
        for (int x = 0; x < source.width(); ++x) {
            int red = qRed(values.row(y)[x]);
            const auto consider = [&](int otherX, int otherY) {
                const QRgb other = values.row(otherY)[otherX];
                if (qRed(other) <= threshold || qRed(other) <= red)
                    return;
                result.setPixel(x, y, other);
                red = qRed(result.pixel(x, y));
            };
            for (int above = std::max(y - radius, 0); above < y; ++above)
                consider(x, above);
            for (int beside = std::max(x - radius, 0);
                 beside < std::min(x + radius + 1, source.width()); ++beside)
                consider(beside, y);
            for (int below = y + 1; below < std::min(y + radius + 1, source.height()); ++below)
                consider(x, below);
        }
    }
}

// Writes the keys of all pixels, and returns whether those above the threshold are opaque grey: then a key tells the
// whole pixel.
bool thresholdReds(const QImage& source, int threshold, const RowLoops& loops, GreyKeys& keys)
{
    const QRgb alphaMask = alphaMaskOf(source);
    for (int y = 0; y < keys.height; ++y) {
        if (!loops.dilation.thresholdReds(
                wordRow(source, y), keys.width, threshold, alphaMask, keys.row(y)))
            return false;
    }
    return true;
}

// Calls write(y, along, down) for every row, with the greatest keys within the radius in its rows and columns.
template <typename Write>
void dilateKeys(const GreyKeys& keys, int radius, const RowLoops& loops, const Write& write)
{
    MaximaAlongRow<quint8> alongRow(keys.width, radius, loops);
    MaximaDownColumns<quint8> downColumns(keys, radius, loops);
    for (int y = 0; y < keys.height; ++y)
        write(y, alongRow.of(keys.row(y)), downColumns.next(y));
}

QImage dilateWords(const QImage& source, int radius, int threshold, const RowLoops& loops)
{
    GreyKeys keys(source.width(), source.height());
    if (!thresholdReds(source, threshold, loops, keys)) {
        QImage result = copyOf(source);
        dilateColours(source, radius, threshold, loops, result);
        return result;
    }
    QImage result = sameWithoutPixels(source);
    dilateKeys(keys, radius, loops, [&](int y, const quint8* along, const quint8* down) {
        loops.dilation.dilateRow(
            along, down, keys.width, wordRow(source, y), writableWordRow(result, y));
    });
    return result;
}

} // namespace

QImage vx::kernels::dilate(const QImage& source, int radius, int threshold, const RowLoops& loops)
{
    const bool isIndexed = source.pixelFormat().colorModel() == QPixelFormat::Indexed;
    if (source.isNull() || radius < 1 || isIndexed)
        return copyOf(source);
    if (source.format() == QImage::Format_Grayscale8) {
        QImage result = sameWithoutPixels(source); // in large pages, as a copy by Qt would not be
        for (int y = 0; y < source.height(); ++y)
            std::copy_n(source.constScanLine(y), source.width(), result.scanLine(y));
        dilateGrey(result, radius, threshold, loops);
        return result;
    }

    const bool holdsWords
        = source.format() == QImage::Format_ARGB32 || source.format() == QImage::Format_RGB32;
    // A uniform image has no pixel that another could overwrite.
    if (holdsWords)
        return isUniform(source, loops) ? copyOf(source)
                                        : dilateWords(source, radius, threshold, loops);
    QImage result = copyOf(source);
    dilatePixels(source, radius, threshold, result);
    return result;
}

void vx::kernels::dilateGrey(QImage& greyMap, int radius, int threshold, const RowLoops& loops)
{
    GreyKeys keys(greyMap.width(), greyMap.height());
    bool isAnyAbove = false;
    for (int y = 0; y < keys.height; ++y)
        isAnyAbove |= loops.dilation.thresholdBytes(
            greyMap.constScanLine(y), keys.width, threshold, keys.row(y));
    if (!isAnyAbove)
        return;
    dilateKeys(keys, radius, loops, [&](int y, const quint8* along, const quint8* down) {
        quint8* const row = greyMap.scanLine(y);
        loops.dilation.writeMaxima(row, along, keys.width, row);
        loops.dilation.writeMaxima(row, down, keys.width, row);
    });
}
