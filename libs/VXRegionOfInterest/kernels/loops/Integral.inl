// Eight rows of an integral image at once. Each row is a running sum, and each of its values adds to
// the one above it, so neither rows nor columns are independent; diagonals are. A vector holds one
// column of each row, every row one column behind the row above it: then the running sums advance
// side by side, and what each row needs from the row above is what the lane before it had one step
// ago. Where registers are too small for a column of eight rows, they are passed through in two sets.

#ifdef __AVX512F__
constexpr int setRows = 8;
#define VX_SHUFFLED_SET(a, b, ofFour, ofEight) __builtin_shufflevector(a, b, VX_LIST ofEight)
#else
constexpr int setRows = 4;
#define VX_SHUFFLED_SET(a, b, ofFour, ofEight) __builtin_shufflevector(a, b, VX_LIST ofFour)
#endif
using SetDoubles = DoublesOf<setRows>;
using SetWords = WordsOf<setRows>;

// So many steps bring every row as many columns on as the set has rows.
struct SetPixels {
    SetWords steps[setRows];
};

VX_ALWAYS_INLINE void interleave(
    const SetWords& a, const SetWords& b, SetWords& low, SetWords& high)
{
    low = VX_SHUFFLED_SET(a, b, (0, 4, 1, 5), (0, 8, 1, 9, 2, 10, 3, 11));
    high = VX_SHUFFLED_SET(a, b, (2, 6, 3, 7), (4, 12, 5, 13, 6, 14, 7, 15));
}

// Interleaving the first half of the vectors with the second turns rows into columns, once it has
// been done for every binary digit of a row's number.
VX_ALWAYS_INLINE void loadSet(const QRgb* const* rows, std::ptrdiff_t x, SetPixels& pixels)
{
#pragma GCC unroll 8
    for (int row = 0; row < setRows; ++row)
        __builtin_memcpy(&pixels.steps[row], rows[row] + x - row, sizeof(SetWords));
#pragma GCC unroll 3
    for (int digit = 1; digit < setRows; digit *= 2) {
        const SetPixels before = pixels;
#pragma GCC unroll 4
        for (std::ptrdiff_t i = 0; i < setRows / 2; ++i)
            interleave(before.steps[i], before.steps[i + setRows / 2], pixels.steps[2 * i],
                pixels.steps[2 * i + 1]);
    }
}

// A value followed by all lanes of others but the last.
VX_ALWAYS_INLINE void shiftIn(double value, const SetDoubles& others, SetDoubles& shifted)
{
#ifdef __AVX__
    const SetDoubles values = value - SetDoubles {};
    shifted = VX_SHUFFLED_SET(values, others, (0, 4, 5, 6), (0, 8, 9, 10, 11, 12, 13, 14));
#else
    shifted = SetDoubles { value, others[0], others[1], others[2] };
#endif
}

// Rows that have not begun yet in the first steps add nothing.
VX_ALWAYS_INLINE void dropRowsThatWait(int step, Channels<setRows>& channels)
{
    using Masks = MasksOf<setRows>;
    Masks begun;
    for (int row = 0; row < setRows; ++row)
        begun[row] = row <= step ? -1 : 0;
    for (SetDoubles& channel : channels.of)
        channel = reinterpret_cast<SetDoubles>(reinterpret_cast<Masks>(channel) & begun);
}

// Stores what two steps leave behind of every second row of a set; kept row i is one column behind
// the row before it.
VX_ALWAYS_INLINE void storeSteps(const SetDoubles& a, const SetDoubles& b, const IntegralRow* kept,
    std::ptrdiff_t half, std::ptrdiff_t pair)
{
#ifdef __AVX__
    const SetDoubles both = VX_SHUFFLED_SET(a, b, (1, 5, 3, 7), (1, 9, 3, 11, 5, 13, 7, 15));
#endif
#pragma GCC unroll 4
    for (std::ptrdiff_t i = 0; i < setRows / 2; ++i) {
        double* const columns = kept[i].values + half * kept[i].stride + pair - i;
#ifdef __AVX__
        __builtin_memcpy(
            columns, reinterpret_cast<const double*>(&both) + 2 * i, 2 * sizeof(double));
#else
        columns[0] = a[2 * i + 1];
        columns[1] = b[2 * i + 1];
#endif
    }
}

// The first of the kept rows is one column behind the first row, so even steps are its odd columns.
VX_ALWAYS_INLINE void storeSet(
    const SetDoubles* steps, std::ptrdiff_t pair, const IntegralRow* kept, std::ptrdiff_t channel)
{
#pragma GCC unroll 2
    for (int step = 0; step < setRows; step += 4) {
        const std::ptrdiff_t even = 2 * channel;
        storeSteps(steps[step + 1], steps[step + 3], kept, even, pair + step / 2);
        storeSteps(steps[step], steps[step + 2], kept, even + 1, pair + step / 2 - 1);
    }
}

struct SetSums {
    SetDoubles alongRows[channelCount];
    SetDoubles integral[channelCount];
};

template <bool isFirst>
VX_ALWAYS_INLINE void integrateColumns(const QRgb* const* rows, std::ptrdiff_t x,
    const IntegralRow& above, const IntegralRow* kept, SetSums& sums)
{
    SetPixels pixels;
    loadSet(rows, x, pixels);
    SetDoubles steps[channelCount][setRows];
#pragma GCC unroll 8
    for (int step = 0; step < setRows; ++step) {
        Channels<setRows> channels;
        convert(pixels.steps[step], channels);
        if (isFirst)
            dropRowsThatWait(step, channels);
#pragma GCC unroll 3
        for (int channel = 0; channel < channelCount; ++channel) {
            sums.alongRows[channel] += channels.of[channel];
            const SetDoubles before = sums.integral[channel];
            SetDoubles shifted;
            shiftIn(above.values[(2 * channel + step % 2) * above.stride + (x + step) / 2], before,
                shifted);
            sums.integral[channel] = sums.alongRows[channel] + shifted;
            steps[channel][step] = sums.integral[channel];
        }
    }
#pragma GCC unroll 3
    for (int channel = 0; channel < channelCount; ++channel)
        storeSet(steps[channel], x / 2, kept, channel);
}

VX_ALWAYS_INLINE void integrateSet(
    const QRgb* const* rows, int width, const IntegralRow& above, const IntegralRow* kept)
{
    // Copies, which no store can change.
    const QRgb* ownRows[setRows];
    for (int row = 0; row < setRows; ++row)
        ownRows[row] = rows[row];
    IntegralRow ownKept[setRows / 2];
    for (int row = 0; row < setRows / 2; ++row)
        ownKept[row] = kept[row];
    const IntegralRow ownAbove = above;
    SetSums sums = {};
    integrateColumns<true>(ownRows, 0, ownAbove, ownKept, sums);
    for (std::ptrdiff_t x = setRows; x < width + setRows - 1; x += setRows)
        integrateColumns<false>(ownRows, x, ownAbove, ownKept, sums);
}

void integrateEightRows(const QRgb* const* rows, int width, const IntegralRow* kept)
{
    integrateSet(rows, width, kept[3], kept);
    if (setRows == 4)
        integrateSet(rows + 4, width, kept[1], kept + 2);
}
