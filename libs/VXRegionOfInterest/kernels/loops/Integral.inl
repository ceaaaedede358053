// Four rows of an integral image at once. Each row is a running sum, and each of its values adds to
// the one above it, so neither rows nor columns are independent; diagonals are. A vector holds one
// column of each row, every row one column behind the row above it: then the running sums advance
// side by side, and what each row needs from the row above is what the lane before it had one step
// ago.

using TwoDoubles = double __attribute__((vector_size(16)));
using FourWords = quint32 __attribute__((vector_size(16)));
using FourInts = qint32 __attribute__((vector_size(16)));
using FourMasks = qint64 __attribute__((vector_size(32)));

constexpr int fourRows = 4;

// Four steps of the diagonal from column x of the first row on.
struct DiagonalPixels {
    FourWords steps[fourRows];
};

VX_ALWAYS_INLINE void loadDiagonal(
    const QRgb* const* rows, std::ptrdiff_t x, DiagonalPixels& pixels)
{
    FourWords a;
    FourWords b;
    FourWords c;
    FourWords d;
    __builtin_memcpy(&a, rows[0] + x, sizeof a);
    __builtin_memcpy(&b, rows[1] + x - 1, sizeof b);
    __builtin_memcpy(&c, rows[2] + x - 2, sizeof c);
    __builtin_memcpy(&d, rows[3] + x - 3, sizeof d);
    const FourWords abLow = __builtin_shufflevector(a, b, 0, 4, 1, 5);
    const FourWords abHigh = __builtin_shufflevector(a, b, 2, 6, 3, 7);
    const FourWords cdLow = __builtin_shufflevector(c, d, 0, 4, 1, 5);
    const FourWords cdHigh = __builtin_shufflevector(c, d, 2, 6, 3, 7);
    pixels.steps[0] = __builtin_shufflevector(abLow, cdLow, 0, 1, 4, 5);
    pixels.steps[1] = __builtin_shufflevector(abLow, cdLow, 2, 3, 6, 7);
    pixels.steps[2] = __builtin_shufflevector(abHigh, cdHigh, 0, 1, 4, 5);
    pixels.steps[3] = __builtin_shufflevector(abHigh, cdHigh, 2, 3, 6, 7);
}

VX_ALWAYS_INLINE void toDoubles(const FourWords& words, FourDoubles& doubles)
{
#ifdef __AVX__
    // GCC 12 makes five instructions of the general way where there is one.
    doubles = _mm256_cvtepi32_pd(reinterpret_cast<__m128i>(words));
#else
    doubles = __builtin_convertvector(reinterpret_cast<FourInts>(words), FourDoubles);
#endif
}

// A value followed by the first three lanes of others.
VX_ALWAYS_INLINE void shiftIn(const double& value, const FourDoubles& lanes, FourDoubles& shifted)
{
#ifdef __AVX__
    const FourDoubles turned = __builtin_shufflevector(lanes, lanes, 3, 0, 1, 2);
    shifted = _mm256_blend_pd(turned, _mm256_broadcast_sd(&value), 1);
#else
    shifted = FourDoubles { value, lanes[0], lanes[1], lanes[2] };
#endif
}

struct DiagonalChannels {
    FourDoubles of[channelCount];
};

VX_ALWAYS_INLINE void convertDiagonal(const FourWords& pixels, DiagonalChannels& channels)
{
    FourDoubles red;
    FourDoubles green;
    FourDoubles blue;
    toDoubles(pixels >> 16U & 0xFFU, red);
    toDoubles(pixels >> 8U & 0xFFU, green);
    toDoubles(pixels & 0xFFU, blue);
    toLumaChroma(red, green, blue, channels.of[0], channels.of[1], channels.of[2]);
}

// Rows that have not begun yet in the first steps add nothing.
VX_ALWAYS_INLINE void dropRowsThatWait(int step, DiagonalChannels& channels)
{
    const FourMasks begun = { -1, step >= 1 ? -1 : 0, step >= 2 ? -1 : 0, step >= 3 ? -1 : 0 };
    for (FourDoubles& channel : channels.of)
        channel = reinterpret_cast<FourDoubles>(reinterpret_cast<FourMasks>(channel) & begun);
}

// What the steps of four columns leave behind of one channel: its values in the second and the
// fourth row, which are one and three columns behind the first row.
VX_ALWAYS_INLINE void storeDiagonal(const FourDoubles* steps, std::ptrdiff_t pair,
    const IntegralRow& middle, const IntegralRow& end, std::ptrdiff_t channel)
{
    const FourDoubles odd = __builtin_shufflevector(steps[0], steps[2], 1, 5, 3, 7);
    const FourDoubles even = __builtin_shufflevector(steps[1], steps[3], 1, 5, 3, 7);
    const TwoDoubles middleOdd = __builtin_shufflevector(odd, odd, 0, 1);
    const TwoDoubles middleEven = __builtin_shufflevector(even, even, 0, 1);
    const TwoDoubles endOdd = __builtin_shufflevector(odd, odd, 2, 3);
    const TwoDoubles endEven = __builtin_shufflevector(even, even, 2, 3);
    double* const middleColumns = middle.values + 2 * channel * middle.stride + pair;
    double* const endColumns = end.values + 2 * channel * end.stride + pair;
    __builtin_memcpy(middleColumns, &middleEven, sizeof middleEven);
    __builtin_memcpy(middleColumns + middle.stride - 1, &middleOdd, sizeof middleOdd);
    __builtin_memcpy(endColumns - 1, &endEven, sizeof endEven);
    __builtin_memcpy(endColumns + end.stride - 2, &endOdd, sizeof endOdd);
}

struct DiagonalSums {
    FourDoubles alongRows[channelCount];
    FourDoubles integral[channelCount];
};

template <bool isFirst>
VX_ALWAYS_INLINE void integrateFourColumns(const QRgb* const* rows, std::ptrdiff_t x,
    const IntegralRow& middle, const IntegralRow& end, DiagonalSums& sums)
{
    DiagonalPixels pixels;
    loadDiagonal(rows, x, pixels);
    FourDoubles steps[channelCount][fourRows];
#pragma GCC unroll 4
    for (int step = 0; step < fourRows; ++step) {
        DiagonalChannels channels;
        convertDiagonal(pixels.steps[step], channels);
        if (isFirst)
            dropRowsThatWait(step, channels);
#pragma GCC unroll 3
        for (int channel = 0; channel < channelCount; ++channel) {
            sums.alongRows[channel] += channels.of[channel];
            const FourDoubles before = sums.integral[channel];
            FourDoubles above;
            shiftIn(
                end.values[(2 * channel + step % 2) * end.stride + (x + step) / 2], before, above);
            sums.integral[channel] = sums.alongRows[channel] + above;
            steps[channel][step] = sums.integral[channel];
        }
    }
#pragma GCC unroll 3
    for (int channel = 0; channel < channelCount; ++channel)
        storeDiagonal(steps[channel], x / 2, middle, end, channel);
}

void integrateFourRows(
    const QRgb* const* rows, int width, const IntegralRow& middle, const IntegralRow& end)
{
    // Copies, which no store can change.
    const QRgb* const ownRows[fourRows] = { rows[0], rows[1], rows[2], rows[3] };
    const IntegralRow ownMiddle = middle;
    const IntegralRow ownEnd = end;
    DiagonalSums sums = {};
    integrateFourColumns<true>(ownRows, 0, ownMiddle, ownEnd, sums);
    for (std::ptrdiff_t x = fourRows; x < width + fourRows; x += fourRows)
        integrateFourColumns<false>(ownRows, x, ownMiddle, ownEnd, sums);
}
