#include "Blend.h"

#include "../image/AlignedArray.h"
#include "../image/PixelLoops.h"
#include "../image/PixelWords.h"
#include "BlendLoops.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

using namespace vx::kernels;

qint32 divisorOf(const QList<int>& weights)
{
    quint32 sum = 0;
    for (const int weight : weights)
        sum += static_cast<quint32>(std::max(weight, 0));
    return sum == 0 ? 1 : static_cast<qint32>(sum);
}

// Whether every weighted sum of bytes fits into 16 bits.
bool areSumsSmall(const QList<int>& weights)
{
    qint64 most = 0;
    for (const int weight : weights)
        most += 255 * std::abs(static_cast<qint64>(weight));
    return most <= mostOfSmallSums;
}

bool cover(const QSize& size, const std::vector<MapView>& maps)
{
    return std::all_of(maps.begin(), maps.end(), [&](const MapView& map) {
        return map.columnCount() >= size.width() && map.rowCount() >= size.height();
    });
}

// The rows of several maps, each with a buffer of its own.
class MapRows {
public:
    MapRows(const std::vector<MapView>& blendedMaps, const RowLoops& rowLoops)
        : maps(blendedMaps)
        , loops(rowLoops)
        , stride(widestOf(maps))
        , buffers(maps.size() * stride)
    {
    }

    const quint8* at(std::size_t map, int y) const
    {
        return maps[map].salienceRow(y, buffers.get() + map * stride, loops);
    }

private:
    static std::size_t widestOf(const std::vector<MapView>& maps)
    {
        int widest = 0;
        for (const MapView& map : maps)
            widest = std::max(widest, map.columnCount());
        return static_cast<std::size_t>(widest);
    }

    const std::vector<MapView>& maps;
    const RowLoops& loops;
    std::size_t stride;
    AlignedArray<quint8> buffers;
};

// Where there are fewer maps than the loop takes, the first one fills up, with a weight of 0.
void blendFew(const std::vector<MapView>& maps, const QList<int>& weights, qint32 divisor,
    QImage& target, const RowLoops& loops)
{
    const MapRows rowsOfMaps(maps, loops);
    for (int y = 0; y < target.height(); ++y) {
        std::array<WeightedBytes, mapsAtOnce> rows {};
        for (std::size_t i = 0; i < maps.size(); ++i)
            rows[i]
                = { rowsOfMaps.at(i, y), static_cast<qint16>(weights.value(static_cast<int>(i))) };
        std::fill(rows.begin() + static_cast<std::ptrdiff_t>(maps.size()), rows.end(),
            WeightedBytes { rows.front().bytes, 0 });
        loops.blend.blendFew(rows.data(), target.width(), divisor, writableWordRow(target, y));
    }
}

void blendAny(const std::vector<MapView>& maps, const QList<int>& weights, qint32 divisor,
    QImage& target, const RowLoops& loops)
{
    const MapRows rowsOfMaps(maps, loops);
    std::vector<quint32> sums(static_cast<std::size_t>(target.width()));
    for (int y = 0; y < target.height(); ++y) {
        std::fill(sums.begin(), sums.end(), 0);
        for (std::size_t i = 0; i < maps.size(); ++i) {
            const auto weight = static_cast<quint32>(weights.value(static_cast<int>(i)));
            if (y < maps[i].rowCount())
                loops.blend.addWeighted(rowsOfMaps.at(i, y),
                    std::min(maps[i].columnCount(), target.width()), weight, sums.data());
        }
        loops.blend.divideSums(sums.data(), target.width(), divisor, writableWordRow(target, y));
    }
}

} // namespace

vx::kernels::MapView::MapView(const QImage& map)
    : first(map.constBits())
    , bytesPerRow(map.bytesPerLine())
    , columns(map.width())
    , rows(map.height())
    , holdsWords(map.depth() == 32)
{
}

const quint8* vx::kernels::MapView::salienceRow(int y, quint8* buffer, const RowLoops& loops) const
{
    const uchar* const bytes = first + y * bytesPerRow;
    if (!holdsWords)
        return bytes;
    loops.pixels.readReds(reinterpret_cast<const QRgb*>(bytes), columns, buffer);
    return buffer;
}

void vx::kernels::blend(const std::vector<MapView>& maps, const QList<int>& weights, QImage& target,
    const RowLoops& loops)
{
    const qint32 divisor = divisorOf(weights);
    const bool areSmall = divisor > 0 && areSumsSmall(weights) && !maps.empty()
        && maps.size() <= mapsAtOnce && cover(target.size(), maps);
    if (areSmall)
        blendFew(maps, weights, divisor, target, loops);
    else
        blendAny(maps, weights, divisor, target, loops);
}
