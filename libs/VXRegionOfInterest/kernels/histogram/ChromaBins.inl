// The loops of the chroma histograms. A chroma of 0 to 255 falls into the bin chroma * bins / 256, rounded down: in
// findChromaBinsOf() for pixels, in findBins() for chroma that has been stored.

// A chroma, truncated: a difference from luma, in thousandths, times a factor in thousandths, plus 128.
//
// In whole numbers that is millionths / 10⁶. For every colour it is what the doubles give (a test tries
// them all), because none of these numbers is closer than 10⁻⁶ to a whole one without being one.
// Divided by 64 first, the millionths are below 2²², so that single precision is enough for the rest
// of the division, by 15625: the quotient of n + 0.5 is at least 0.5 / 15625 away from every whole
// number, and rounded by less.
VX_ALWAYS_INLINE void findChroma(const Words& differences, int factor, Words& chroma)
{
    constexpr int offset = chromaOfGrey * 1000000;
    const Integers millionths = reinterpret_cast<Integers>(differences) * factor + offset;
    const Floats parts = __builtin_convertvector(millionths >> 6, Floats);
    chroma = reinterpret_cast<Words>(
        __builtin_convertvector((parts + 0.5F) * (1.0F / 15625.0F), Integers));
}

// Two numbers of 16 bits in a word.
VX_ALWAYS_INLINE constexpr quint32 pairOf(int lower, int upper)
{
    return (static_cast<quint32>(lower) & 0xFFFFU) | static_cast<quint32>(upper) << 16U;
}

// The bins of a vector of pixels, at most 257 rows and columns of them. Differences from luma are in thousandths.
VX_ALWAYS_INLINE void findChromaBinsOf(
    const QRgb* pixels, quint32 rows, quint32 columns, quint32* indices)
{
    Words words;
    load(pixels, words);
    const Words redBlue = words & redBlueMask;
    const Words green = words >> 8U & 0xFFU;
    Words ofGreen;
    multiplyAddPairs(green, pairOf(-lumaThousandthsOfGreen, 0), ofGreen);
    Words blueDifferences;
    multiplyAddPairs(
        redBlue, pairOf(1000 - lumaThousandthsOfBlue, -lumaThousandthsOfRed), blueDifferences);
    Words redDifferences;
    multiplyAddPairs(
        redBlue, pairOf(-lumaThousandthsOfBlue, 1000 - lumaThousandthsOfRed), redDifferences);
    Words row;
    findChroma(blueDifferences + ofGreen, blueDifferenceThousandths, row);
    multiplyAddPairs(row, rows, row);
    Words column;
    findChroma(redDifferences + ofGreen, redDifferenceThousandths, column);
    multiplyAddPairs(column, columns, column);
    Words before;
    multiplyAddPairs(row >> 8U, columns, before);
    store(before + (column >> 8U), indices);
}

// The last vector may overlap the one before it, and writes the same there.
void findChromaBins(const QRgb* pixels, int count, int rows, int columns, quint32* indices)
{
    const auto rowCount = static_cast<quint32>(rows);
    const auto columnCount = static_cast<quint32>(columns);
    if (count < lanes) {
        QRgb few[lanes] = {};
        quint32 theirs[lanes];
        __builtin_memcpy(few, pixels, static_cast<std::size_t>(count) * sizeof *few);
        findChromaBinsOf(few, rowCount, columnCount, theirs);
        __builtin_memcpy(indices, theirs, static_cast<std::size_t>(count) * sizeof *theirs);
        return;
    }
    const std::ptrdiff_t last = count - lanes;
    for (std::ptrdiff_t i = 0; i < last; i += lanes)
        findChromaBinsOf(pixels + i, rowCount, columnCount, indices + i);
    findChromaBinsOf(pixels + last, rowCount, columnCount, indices + last);
}

void findBins(const QRgb* pixels, int count, int rows, int columns, quint32* __restrict indices)
{
    const auto rowCount = static_cast<quint32>(rows);
    const auto columnCount = static_cast<quint32>(columns);
    for (int i = 0; i < count; ++i) {
        const quint32 row = (pixels[i] >> 8U & 0xFFU) * rowCount >> 8U;
        const quint32 column = (pixels[i] & 0xFFU) * columnCount >> 8U;
        indices[i] = row * columnCount + column;
    }
}

void sumTables(
    const qint32* const* tables, int rows, int columns, double* __restrict sums, quint8* emptyRows)
{
    std::ptrdiff_t first = 0;
    for (int row = 0; row < rows; ++row, first += columns) {
        const qint32* const a = tables[0] + first;
        const qint32* const b = tables[1] + first;
        const qint32* const c = tables[2] + first;
        const qint32* const d = tables[3] + first;
        qint32 all = 0;
        for (std::ptrdiff_t i = 0; i < columns; ++i) {
            const qint32 sum = a[i] + b[i] + c[i] + d[i];
            sums[first + i] = sum;
            all |= sum;
        }
        emptyRows[row] = all == 0 ? 1 : 0;
    }
}

constexpr HistogramLoops histogramLoops()
{
    HistogramLoops loops {};
    loops.findBins = findBins;
    loops.findChromaBins = findChromaBins;
    loops.sumTables = sumTables;
    return loops;
}
