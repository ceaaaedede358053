#include "GreySpreading.h"

#include "PixelWords.h"

#include <algorithm>

namespace {

using namespace vx::kernels;

// Columns that are worked on side by side.
constexpr int stripColumns = 128;

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
        , covered(uninitializedArray<quint8>(static_cast<std::size_t>(byteCount)))
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
    AlignedArray<quint8> covered;
};

} // namespace

vx::kernels::GreySpreading::GreySpreading(const QImage& sourceImage, const RowLoops& rowLoops)
    : source(sourceImage)
    , loops(rowLoops)
    , width(source.width())
    , height(source.height())
    , keys(uninitializedArray<quint8>(pixelCount()))
{
}

bool vx::kernels::GreySpreading::readKeys(int threshold)
{
    const QRgb alwaysSet = bitsAlwaysSet(source);
    for (int y = 0; y < height; ++y) {
        if (!loops.readKeys(
                wordRow(source, y), width, threshold, alwaysSet, keys.get() + offsetOf(y)))
            return false;
    }
    return true;
}

void vx::kernels::GreySpreading::writeInto(QImage& result, int arm)
{
    const auto rowMaxima = uninitializedArray<quint8>(pixelCount());
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

void vx::kernels::GreySpreading::turnIntoColumnMaxima(int arm)
{
    SlidingByteMaximum strip(height, stripColumns, arm, loops);
    const auto maxima = uninitializedArray<quint8>(static_cast<std::size_t>(height) * stripColumns);
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

std::size_t vx::kernels::GreySpreading::pixelCount() const
{
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

std::ptrdiff_t vx::kernels::GreySpreading::offsetOf(std::ptrdiff_t y) const { return y * width; }
