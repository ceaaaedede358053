// Smoothing of a chunk of columns, in one row or four of them at once: along the rows, and then down
// the columns.

// So many that four rows of them stay in the cache next to the processor.
constexpr std::ptrdiff_t chunkColumns = 160;

// What becomes of the columns of a row; the last vector of a row may reach beyond it.
struct Chunk {
    alignas(64) double of[channelCount][chunkColumns];
};

// A run of columns of a row.
struct Columns {
    std::ptrdiff_t first;
    std::ptrdiff_t count;
};

VX_ALWAYS_INLINE void convertColumns(const QRgb* row, std::ptrdiff_t x, Channels<lanes>& channels)
{
    WordsOf<lanes> pixels;
    __builtin_memcpy(&pixels, row + x, sizeof pixels);
    convert(pixels, channels);
}

// The same where the row may end. Beyond it its last column is repeated.
VX_ALWAYS_INLINE void convertLastColumns(
    const QRgb* row, int width, std::ptrdiff_t x, Channels<lanes>& channels)
{
    QRgb pixels[lanes];
    for (std::ptrdiff_t lane = 0; lane < lanes; ++lane)
        pixels[lane] = row[x + lane < width ? x + lane : width - 1];
    convertColumns(pixels, 0, channels);
}

// Columns of a row and those before them.
struct Window {
    Channels<lanes> before;
    Channels<lanes> here;
};

VX_ALWAYS_INLINE void openWindow(const QRgb* row, int width, std::ptrdiff_t x, Window& window)
{
    const WordsOf<lanes> before = WordsOf<lanes> {} + row[x == 0 ? 0 : x - 1];
    convert(before, window.before);
    convertLastColumns(row, width, x, window.here);
}

// The outermost columns have one neighbour, or none.
VX_ALWAYS_INLINE void smoothEnds(
    const Doubles& before, const Doubles& here, int width, std::ptrdiff_t x, Doubles& smoothed)
{
    double values[1 + lanes];
    values[0] = before[lanes - 1];
    __builtin_memcpy(values + 1, &here, sizeof here);
    double ends[lanes];
    __builtin_memcpy(ends, &smoothed, sizeof ends);
    const std::ptrdiff_t last = width - 1 - x;
    if (x == 0)
        ends[0] = (2 * values[1] + values[2]) / 3;
    if (last < lanes)
        ends[last] = (values[last] + 2 * values[last + 1]) / 3;
    if (width == 1)
        ends[0] = values[1];
    __builtin_memcpy(&smoothed, ends, sizeof ends);
}

// Weights 1, 2, 1 along the row; dividing by 4 is exact as a multiplication. The window moves on.
template <bool isEnd>
VX_ALWAYS_INLINE void smoothAlong(
    const QRgb* row, int width, std::ptrdiff_t x, Window& window, Channels<lanes>& smoothed)
{
    Channels<lanes> after;
    if (isEnd)
        convertLastColumns(row, width, x + lanes, after);
    else
        convertColumns(row, x + lanes, after);
#pragma GCC unroll 3
    for (int channel = 0; channel < channelCount; ++channel) {
        const Doubles here = window.here.of[channel];
        Doubles left;
        Doubles right;
        shiftLeft(window.before.of[channel], here, left);
        shiftRight(here, after.of[channel], right);
        Doubles& mean = smoothed.of[channel];
        mean = (left + 2 * here + right) * 0.25;
        if (isEnd)
            smoothEnds(window.before.of[channel], here, width, x, mean);
    }
    window.before = window.here;
    window.here = after;
}

template <bool isEnd>
VX_ALWAYS_INLINE void smoothColumnsAlong(const QRgb* row, int width, const Columns& columns,
    std::ptrdiff_t i, Window& window, Chunk& chunk)
{
    Channels<lanes> smoothed;
    smoothAlong<isEnd>(row, width, columns.first + i, window, smoothed);
#pragma GCC unroll 3
    for (int channel = 0; channel < channelCount; ++channel)
        __builtin_memcpy(&chunk.of[channel][i], &smoothed.of[channel], sizeof(Doubles));
}

VX_ALWAYS_INLINE void smoothChunkAlong(
    const QRgb* row, int width, const Columns& columns, Chunk& chunk)
{
    Window window;
    openWindow(row, width, columns.first, window);
    std::ptrdiff_t i = 0;
    if (columns.first == 0) {
        smoothColumnsAlong<true>(row, width, columns, i, window, chunk);
        i = lanes;
    }
    const std::ptrdiff_t innerEnd = width - 2 * lanes - columns.first;
    for (; i < columns.count && i <= innerEnd; i += lanes)
        smoothColumnsAlong<false>(row, width, columns, i, window, chunk);
    for (; i < columns.count; i += lanes)
        smoothColumnsAlong<true>(row, width, columns, i, window, chunk);
}

// Takes rows that are smoothed along themselves into the state, one after the other, and leaves in
// their place what smoothing down the columns makes of the row before each.
template <std::size_t rowCount>
VX_ALWAYS_INLINE void smoothChunkDown(
    Chunk (&chunks)[rowCount], const Columns& columns, const SmoothingState& state, double weights)
{
    for (int channel = 0; channel < channelCount; ++channel) {
        double* __restrict const alongRow
            = state.alongRow.values + channel * state.alongRow.stride + columns.first;
        double* __restrict const weightedSum
            = state.weightedSum.values + channel * state.weightedSum.stride + columns.first;
        for (std::ptrdiff_t i = 0; i < columns.count; ++i) {
            double latest = alongRow[i];
            double sum = weightedSum[i];
#pragma GCC unroll 4
            for (std::size_t row = 0; row < rowCount; ++row) {
                const double next = chunks[row].of[channel][i];
                const double all = sum + next;
                chunks[row].of[channel][i] = rowCount > 1 ? all * 0.25 : all / weights;
                sum = latest + 2 * next;
                latest = next;
            }
            alongRow[i] = latest;
            weightedSum[i] = sum;
        }
    }
}

// To a state of zeros, the first row is the next one to any other.
void beginSmoothing(const QRgb* firstRow, int width, const SmoothingState& state)
{
    for (std::ptrdiff_t x = 0; x < width; x += chunkColumns) {
        const Columns columns { x, width - x < chunkColumns ? width - x : chunkColumns };
        Chunk chunks[1];
        smoothChunkAlong(firstRow, width, columns, chunks[0]);
        smoothChunkDown(chunks, columns, state, 1.0);
    }
}
