// Estimates of the contrasts: squared distances of smoothed pixels to the means of their surrounds.

// The sums of all vectors so far.
struct RunningSums {
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

// The contrasts of one half of a row.
//
// The difference of mean and smoothed pixel is taken in red, green and blue, and converted to luma and chroma: the
// offset of chroma cancels out in a difference. Up to the last step everything is scaled by the sum of the smoothing
// weights. The sign is that of the prefix sums, which are subtracted from the whole row in the right half.
template <int sign>
VX_ALWAYS_INLINE void estimateHalf(const PrefixSums& sums, std::ptrdiff_t firstColumn,
    const SmoothedRows& smoothed, const SurroundScale& scale, RunningSums& before,
    double* __restrict contrasts)
{
    constexpr double redScale = redDifferenceScale * redDifferenceScale;
    constexpr double blueScale = blueDifferenceScale * blueDifferenceScale;
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
            const double luma
                = multiplyAdd(lumaOfBlue, blue, multiplyAdd(lumaOfGreen, green, lumaOfRed * red));
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

// The last vector of a half may write too much. The right half overwrites what the left half has too much, and the
// next row what the right half has.
void estimateContrasts(int width, const SurroundSums& sums, const SmoothedRows& smoothed,
    const SurroundScale& scale, double* contrasts, Range& range)
{
    RunningSums before {};
    estimateHalf<1>(sums.left, 0, smoothed, scale, before, contrasts);
    estimateHalf<-1>(sums.right, (width + 1) / 2, smoothed, scale, before, contrasts);
    widenRange(contrasts, width, range);
}
