// How far pixels, smoothed, are from the means of their surrounds.

// The sums of all vectors before.
struct SumsBefore {
    double red;
    double green;
    double blue;
};

VX_ALWAYS_INLINE double numberOf(quint32 word) { return static_cast<qint32>(word); }

VX_ALWAYS_INLINE quint32 smoothDown(
    const SmoothedRows& rows, quint32* PackedRow::*of, std::ptrdiff_t x)
{
    return (rows.above.*of)[x] + 2 * (rows.here.*of)[x] + (rows.below.*of)[x];
}

// A mean minus a smoothed value is taken of the channels and becomes luma and chroma then: the constants
// that chroma is moved by do not count in a difference. Up to the end, all of it is as many times too
// large as the smoothing weights add up to. The sign is that of the sums: those of the right half are
// what a surround has not got of all columns.
template <int sign>
VX_ALWAYS_INLINE void estimateHalf(const SurroundSums& sums, std::ptrdiff_t firstColumn,
    const SmoothedRows& smoothed, const SurroundScale& scale, SumsBefore& before,
    double* __restrict contrasts)
{
    constexpr double redScale = 0.713 * 0.713;
    constexpr double blueScale = 0.564 * 0.564;
    for (std::ptrdiff_t first = 0; first < sums.count; first += lanes) {
        for (std::ptrdiff_t i = first; i < first + lanes; ++i) {
            const std::ptrdiff_t x = firstColumn + i;
            const double perSum = scale.ofSums[x] * scale.ofSumsInRow;
            const quint32 redBlue = smoothDown(smoothed, &PackedRow::redBlue, x);
            const quint32 greenTimes256 = smoothDown(smoothed, &PackedRow::green, x);
            const double red = multiplyAdd(
                before.red + sign * numberOf(sums.red[i]), perSum, -numberOf(redBlue >> 16U));
            const double green = multiplyAdd(before.green + sign * numberOf(sums.green[i]), perSum,
                -numberOf(greenTimes256 >> 8U));
            const double blue = multiplyAdd(
                before.blue + sign * numberOf(sums.blue[i]), perSum, -numberOf(redBlue & 0xFFFFU));
            const double luma = multiplyAdd(0.114, blue, multiplyAdd(0.587, green, 0.299 * red));
            const double redDifference = red - luma;
            const double blueDifference = blue - luma;
            const double squared = multiplyAdd(blueScale * blueDifference, blueDifference,
                multiplyAdd(redScale * redDifference, redDifference, luma * luma));
            contrasts[x] = squared * (scale.ofSquares[x] * scale.ofSquaresInRow);
        }
        const std::ptrdiff_t last = first + lanes - 1;
        before.red += sign * numberOf(sums.red[last]);
        before.green += sign * numberOf(sums.green[last]);
        before.blue += sign * numberOf(sums.blue[last]);
    }
}

// What the last vectors of a half have too many is written over by the right half, or by the row
// below.
void estimateContrasts(int width, const Surrounds& surrounds, const SmoothedRows& smoothed,
    const SurroundScale& scale, double* contrasts, Range& range)
{
    SumsBefore before {};
    estimateHalf<1>(surrounds.left, 0, smoothed, scale, before, contrasts);
    estimateHalf<-1>(surrounds.right, (width + 1) / 2, smoothed, scale, before, contrasts);
    widenRange(contrasts, width, range);
}
