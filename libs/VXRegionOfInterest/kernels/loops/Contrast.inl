// The distance between what is smoothed and what surrounds it, for one row or four of them at once.
// A chunk of columns goes all the way, so that what lies between stays in the cache next to the
// processor.

// sum / count, the reciprocal of the count being known to within a few units in the last place.
//
// With fused operations, a product with the reciprocal is corrected by its own remainder. That gives
// the rounded quotient itself: the product q is off by a few units u in its last place, the remainder
// sum - q · count is exact because it is a small multiple of u, and the correction is off by less
// than u · 2⁻⁴⁸. The count being a whole number below 2³¹, no quotient lies that close to the middle
// of two doubles: sum - middle · count is a multiple of u / 2, and it is not 0, because the product of
// a whole number and a middle, which has 54 binary digits, is no double.
VX_ALWAYS_INLINE double quotient(double sum, double count, double reciprocal)
{
#ifdef __FMA__
    const double product = sum * reciprocal;
    const double remainder = __builtin_fma(-product, count, sum);
    return __builtin_fma(remainder, reciprocal, product);
#else
    static_cast<void>(reciprocal);
    return sum / count;
#endif
}

// sumOf(channel, i) is the sum over the surround of the i-th of the columns.
template <typename SumOf>
VX_ALWAYS_INLINE void contrastChunk(const SurroundColumns& surrounds, const ContrastRow& row,
    const Columns& columns, const Chunk& smoothed, const SumOf& sumOf)
{
    const double rows = row.surroundRows;
    const double rowReciprocal = 1 / rows;
    const double* const widths = surrounds.widths + columns.first;
    const double* const reciprocals = surrounds.reciprocals + columns.first;
    double* __restrict const contrasts = row.contrasts + columns.first;
    for (std::ptrdiff_t i = 0; i < columns.count; ++i) {
        const double area = widths[i] * rows;
        const double reciprocal = reciprocals[i] * rowReciprocal;
        const double a = quotient(sumOf(0, i), area, reciprocal) - smoothed.of[0][i];
        const double b = quotient(sumOf(1, i), area, reciprocal) - smoothed.of[1][i];
        const double c = quotient(sumOf(2, i), area, reciprocal) - smoothed.of[2][i];
        contrasts[i] = a * a + b * b + c * c;
    }
}

// Rows that are worked on together.
template <std::size_t rowCount> struct ContrastRows {
    Ranges ranges;
    Range& range;
    const SurroundColumns& surrounds;
    const SmoothingState& state;
    const ContrastRow* rows;
    int width;
};

// sumOf(row, channel, i) is the sum over the surround of the i-th of the columns.
template <std::size_t rowCount, typename SumOf>
VX_ALWAYS_INLINE void contrastColumns(
    ContrastRows<rowCount>& all, const Columns& columns, const SumOf& sumOf)
{
    for (std::ptrdiff_t done = 0; done < columns.count; done += chunkColumns) {
        const std::ptrdiff_t rest = columns.count - done;
        const Columns part { columns.first + done, rest < chunkColumns ? rest : chunkColumns };
        Chunk chunks[rowCount];
        for (std::size_t row = 0; row < rowCount; ++row) {
            if (all.rows[row].next != nullptr)
                smoothChunkAlong(all.rows[row].next, all.width, part, chunks[row]);
            else
                chunks[row] = {};
        }
        smoothChunkDown(chunks, part, all.state, all.rows[0].weights);
        for (std::size_t row = 0; row < rowCount; ++row) {
            contrastChunk(all.surrounds, all.rows[row], part, chunks[row],
                [&](int channel, std::ptrdiff_t i) { return sumOf(row, channel, done + i); });
            widenRanges(all.rows[row].contrasts + part.first, part.count, all.ranges, all.range);
        }
    }
}

// Column x of an integral row and every second one after it, in all channels.
struct EverySecondColumn {
    const double* of[channelCount];
};

VX_ALWAYS_INLINE EverySecondColumn columnsFrom(const IntegralRow& row, std::ptrdiff_t x)
{
    const std::ptrdiff_t isOdd = x & 1;
    const double* const first = row.values + isOdd * row.stride + (x - isOdd) / 2;
    return { { first, first + 2 * row.stride, first + 4 * row.stride } };
}

// The same of the rows that surrounds end with and, unless they begin with row 0, of those above.
template <std::size_t rowCount, bool fromRow0> struct Corners {
    EverySecondColumn bottom[rowCount];
    EverySecondColumn above[rowCount];

    VX_ALWAYS_INLINE Corners(const ContrastRow* rows, std::ptrdiff_t x)
    {
        for (std::size_t row = 0; row < rowCount; ++row) {
            bottom[row] = columnsFrom(rows[row].bottom, x);
            if (!fromRow0)
                above[row] = columnsFrom(rows[row].above, x);
        }
    }
};

// Columns whose surrounds begin with column 0, and end with column `right` and every second one
// after it.
template <std::size_t rowCount, bool fromRow0>
VX_ALWAYS_INLINE void contrastFromLeft(
    ContrastRows<rowCount>& all, const Columns& columns, std::ptrdiff_t right)
{
    const Corners<rowCount, fromRow0> corners(all.rows, right);
    contrastColumns(all, columns, [&](std::size_t row, int channel, std::ptrdiff_t i) {
        const double bottom = corners.bottom[row].of[channel][i];
        return fromRow0 ? bottom : bottom - corners.above[row].of[channel][i];
    });
}

// Columns whose surrounds end with the last column, and begin after column `before` and every second
// one after it.
template <std::size_t rowCount, bool fromRow0>
VX_ALWAYS_INLINE void contrastToRight(
    ContrastRows<rowCount>& all, const Columns& columns, std::ptrdiff_t before)
{
    const Corners<rowCount, fromRow0> corners(all.rows, before);
    const Corners<rowCount, fromRow0> last(all.rows, all.width - 1);
    double bottoms[rowCount][channelCount];
    double aboves[rowCount][channelCount];
    for (std::size_t row = 0; row < rowCount; ++row) {
        for (int channel = 0; channel < channelCount; ++channel) {
            bottoms[row][channel] = *last.bottom[row].of[channel];
            aboves[row][channel] = fromRow0 ? 0 : *last.above[row].of[channel];
        }
    }
    contrastColumns(all, columns, [&](std::size_t row, int channel, std::ptrdiff_t i) {
        const double bottom = bottoms[row][channel];
        if (fromRow0)
            return bottom - corners.bottom[row].of[channel][i];
        return bottom + corners.above[row].of[channel][i] - aboves[row][channel]
            - corners.bottom[row].of[channel][i];
    });
}

// In the left half a surround begins with column 0 and ends with column 2x; in the right half it ends
// with the last column and begins after column 2x - width - 1, which may be column -1.
template <std::size_t rowCount, bool fromRow0> void contrastFullRows(ContrastRows<rowCount>& all)
{
    const std::ptrdiff_t width = all.width;
    const std::ptrdiff_t leftHalf = (width + 1) / 2;
    contrastFromLeft<rowCount, fromRow0>(all, { 0, leftHalf }, 0);
    contrastToRight<rowCount, fromRow0>(
        all, { leftHalf, width - leftHalf }, 2 * leftHalf - width - 1);
}

template <std::size_t rowCount>
void contrastEitherHalf(int width, const SurroundColumns& surrounds, const SmoothingState& state,
    const ContrastRow* rows, Range& range)
{
    ContrastRows<rowCount> all { {}, range, surrounds, state, rows, width };
    beginRanges(range, all.ranges);
    if (rows[0].above.values == nullptr)
        contrastFullRows<rowCount, true>(all);
    else
        contrastFullRows<rowCount, false>(all);
    endRanges(all.ranges, range);
}

void contrastRows(int width, const SurroundColumns& surrounds, const SmoothingState& state,
    const ContrastRow* rows, int count, Range& range)
{
    if (count == 4)
        contrastEitherHalf<4>(width, surrounds, state, rows, range);
    else
        contrastEitherHalf<1>(width, surrounds, state, rows, range);
}

// A whole number n divided by another, d, truncates like (n + 0.5) · (1 / d): that is at least 0.5 /
// d away from every whole number, and rounded by far less, since both are below 2³¹.
void writeLevels(
    const double* contrasts, int count, double least, int range, QRgb* __restrict pixels)
{
    const double reciprocal = 1.0 / range;
    for (int i = 0; i < count; ++i) {
        const double above = static_cast<int>(contrasts[i] - least);
        pixels[i] = opaqueGrey(static_cast<int>((above * 255 + 0.5) * reciprocal));
    }
}
