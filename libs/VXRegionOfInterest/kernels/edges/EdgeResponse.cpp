#include "EdgeResponse.h"

#include "../image/PixelWords.h"
#include "EdgeLoops.h"

#include <algorithm>
#include <vector>

namespace {

using namespace vx::kernels;

// The channels of three consecutive rows, deinterleaved. Each row is deinterleaved once.
class ChannelWindow {
public:
    ChannelWindow(const QImage& image, const RowLoops& rowLoops)
        : words(image)
        , loops(rowLoops)
        , values(rowCount * channelCount * static_cast<std::size_t>(image.width()))
    {
        load(0);
        load(1);
    }

    // The rows above, at and below y, to be asked for in the order 1, 2, 3 ...
    const std::array<PlanarRow, 3>& around(int y)
    {
        load(y + 1);
        for (int i = 0; i < 3; ++i)
            rows[static_cast<std::size_t>(i)] = channelsOf(y - 1 + i);
        return rows;
    }

private:
    static constexpr std::size_t rowCount = 3;
    static constexpr std::size_t channelCount = 3;

    PlanarRow channelsOf(int y)
    {
        const auto width = static_cast<std::size_t>(words.width());
        qint16* const first
            = &values[static_cast<std::size_t>(y) % rowCount * channelCount * width];
        return { { first, first + width, first + 2 * width } };
    }

    void load(int y) { loops.edges.deinterleave(wordRow(words, y), words.width(), channelsOf(y)); }

    const QImage& words;
    const RowLoops& loops;
    std::vector<qint16> values;
    std::array<PlanarRow, rowCount> rows {};
};

} // namespace

void vx::kernels::respondToKernel(const QImage& words, const Kernel3x3& kernel, int divisor,
    QImage& target, const RowLoops& loops)
{
    const int width = target.width();
    const int height = target.height();
    if (width < 3 || height < 3) {
        target.fill(opaqueBlack);
        return;
    }
    std::array<qint16, 9> weights {};
    std::copy(kernel.begin(), kernel.end(), weights.begin());
    ChannelWindow window(words, loops);
    for (int y = 1; y < height - 1; ++y) {
        QRgb* const row = writableWordRow(target, y);
        loops.edges.respondAlongRow(
            window.around(y).data(), width, weights.data(), divisor, wordRow(words, y), row);
        row[0] = row[1];
        row[width - 1] = row[width - 2];
    }
    std::copy_n(wordRow(target, 1), width, writableWordRow(target, 0));
    std::copy_n(wordRow(target, height - 2), width, writableWordRow(target, height - 1));
}

void vx::kernels::combineResponses(
    const QImage& horizontal, const QImage& vertical, QImage& target, const RowLoops& loops)
{
    // What the vertical response is beyond its edges.
    const std::vector<QRgb> zeros(static_cast<std::size_t>(target.width()));
    const int bothWide = std::min(target.width(), vertical.width());
    for (int y = 0; y < target.height(); ++y) {
        const QRgb* const across = wordRow(horizontal, y);
        QRgb* const magnitudes = writableWordRow(target, y);
        const int inBoth = y < vertical.height() ? bothWide : 0;
        if (inBoth > 0)
            loops.edges.writeMagnitudes(across, wordRow(vertical, y), inBoth, magnitudes);
        loops.edges.writeMagnitudes(
            across + inBoth, zeros.data(), target.width() - inBoth, magnitudes + inBoth);
    }
}
