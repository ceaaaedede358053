// Smoothing of a chunk of columns, in one row or two of them at once.

// So many that what is stored first has reached the cache when it is loaded again one column on: a
// vector across two stores that are still under way would wait for both.
constexpr std::ptrdiff_t chunkColumns = 128;

// Columns x - 1 to x + count of a row, each channel on its own; later columns x to x + count - 1 of
// what has become of them.
struct ChannelChunk {
    alignas(64) double of[channelCount][chunkColumns + 2];
};

// A run of columns of a row.
struct Columns {
    std::ptrdiff_t first;
    std::ptrdiff_t count;
};

VX_ALWAYS_INLINE void convertColumns(const QRgb* pixels, std::ptrdiff_t count,
    double* __restrict luma, double* __restrict redDifference, double* __restrict blueDifference)
{
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        double y;
        double cr;
        double cb;
        toLumaChroma(redOf(pixels[i]), greenOf(pixels[i]), blueOf(pixels[i]), y, cr, cb);
        luma[i] = y;
        redDifference[i] = cr;
        blueDifference[i] = cb;
    }
}

// Columns and their neighbours; beside the row its outermost column is repeated.
VX_ALWAYS_INLINE void convertChunk(
    const QRgb* row, int width, const Columns& columns, ChannelChunk& chunk)
{
    const std::ptrdiff_t before = columns.first == 0 ? 0 : 1;
    const std::ptrdiff_t end = columns.first + columns.count;
    const std::ptrdiff_t after = end == width ? 0 : 1;
    convertColumns(row + columns.first - before, before + columns.count + after,
        chunk.of[0] + 1 - before, chunk.of[1] + 1 - before, chunk.of[2] + 1 - before);
    for (auto& channel : chunk.of) {
        if (before == 0)
            channel[0] = channel[1];
        if (after == 0)
            channel[columns.count + 1] = channel[columns.count];
    }
}

// Weights 1, 2, 1 along the row; dividing by 4 is exact as a multiplication. The outermost columns
// have one neighbour, or none.
VX_ALWAYS_INLINE void smoothAlong(double* values, int width, const Columns& columns)
{
    const std::ptrdiff_t count = columns.count;
    const bool isLeft = columns.first == 0;
    const bool isRight = columns.first + count == width;
    const double left = (2 * values[1] + values[2]) / 3;
    const double right = (values[count - 1] + 2 * values[count]) / 3;
    const double alone = values[1];
    for (std::ptrdiff_t i = 0; i < count; ++i)
        values[i] = (values[i] + 2 * values[i + 1] + values[i + 2]) * 0.25;
    if (isLeft)
        values[0] = left;
    if (isRight)
        values[count - 1] = right;
    if (isLeft && isRight && width == 1)
        values[0] = alone;
}

VX_ALWAYS_INLINE void smoothChunkAlong(
    const QRgb* row, int width, const Columns& columns, ChannelChunk& chunk)
{
    convertChunk(row, width, columns, chunk);
    for (int channel = 0; channel < channelCount; ++channel)
        smoothAlong(chunk.of[channel], width, columns);
}

// Takes rows that are smoothed along themselves into the state, one after the other, and leaves in
// their place what smoothing down the columns makes of the row before each.
template <std::size_t rowCount, bool isInner>
VX_ALWAYS_INLINE void smoothChunkDown(ChannelChunk (&chunks)[rowCount], const Columns& columns,
    const SmoothingState& state, double weights)
{
    for (int channel = 0; channel < channelCount; ++channel) {
        double* __restrict const alongRow
            = state.alongRow.values + channel * state.alongRow.stride + columns.first;
        double* __restrict const weightedSum
            = state.weightedSum.values + channel * state.weightedSum.stride + columns.first;
        for (std::ptrdiff_t i = 0; i < columns.count; ++i) {
            double latest = alongRow[i];
            double sum = weightedSum[i];
            for (std::size_t row = 0; row < rowCount; ++row) {
                const double next = chunks[row].of[channel][i];
                chunks[row].of[channel][i] = isInner ? (sum + next) * 0.25 : (sum + next) / weights;
                sum = latest + 2 * next;
                latest = next;
            }
            alongRow[i] = latest;
            weightedSum[i] = sum;
        }
    }
}

void beginSmoothing(const QRgb* firstRow, int width, const SmoothingState& state)
{
    for (std::ptrdiff_t x = 0; x < width; x += chunkColumns) {
        const Columns columns { x, width - x < chunkColumns ? width - x : chunkColumns };
        ChannelChunk chunk;
        smoothChunkAlong(firstRow, width, columns, chunk);
        for (int channel = 0; channel < channelCount; ++channel) {
            double* const alongRow = state.alongRow.values + channel * state.alongRow.stride + x;
            double* const weightedSum
                = state.weightedSum.values + channel * state.weightedSum.stride + x;
            for (std::ptrdiff_t i = 0; i < columns.count; ++i) {
                alongRow[i] = chunk.of[channel][i];
                weightedSum[i] = 2 * chunk.of[channel][i];
            }
        }
    }
}
