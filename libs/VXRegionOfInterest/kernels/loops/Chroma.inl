// The histogram method's loops.

void packLumaChroma(const QRgb* pixels, int count, QRgb* __restrict target)
{
    for (int i = 0; i < count; ++i) {
        double luma;
        double redDifference;
        double blueDifference;
        toLumaChroma(redOf(pixels[i]), greenOf(pixels[i]), blueOf(pixels[i]), luma, redDifference,
            blueDifference);
        target[i] = 0xFF000000U | static_cast<QRgb>(static_cast<int>(luma)) << 16U
            | static_cast<QRgb>(static_cast<int>(blueDifference)) << 8U
            | static_cast<QRgb>(static_cast<int>(redDifference));
    }
}

// A colour difference, given in thousandths, times a factor in thousandths, plus 128, truncated.
//
// In whole numbers that is millionths / 10⁶. For every colour it is what the doubles give (a test tries
// them all), because none of these numbers is closer than 10⁻⁶ to a whole one without being one.
// Divided by 64 first, the millionths are below 2²², so that single precision is enough for the rest
// of the division, by 15625: the quotient of n + 0.5 is at least 0.5 / 15625 away from every whole
// number, and rounded by less.
VX_ALWAYS_INLINE quint32 chromaOf(int difference, int factor)
{
    const int millionths = difference * factor + 128000000;
    const auto parts = static_cast<float>(millionths >> 6);
    return static_cast<quint32>(static_cast<int>((parts + 0.5F) * (1.0F / 15625.0F)));
}

void findChromaBins(
    const QRgb* pixels, int count, int rows, int columns, quint32* __restrict indices)
{
    const auto rowCount = static_cast<quint32>(rows);
    const auto columnCount = static_cast<quint32>(columns);
    for (int i = 0; i < count; ++i) {
        const int red = static_cast<int>(pixels[i] >> 16U & 0xFFU);
        const int green = static_cast<int>(pixels[i] >> 8U & 0xFFU);
        const int blue = static_cast<int>(pixels[i] & 0xFFU);
        const int blueDifference = 886 * blue - 299 * red - 587 * green;
        const int redDifference = 701 * red - 587 * green - 114 * blue;
        const quint32 row = chromaOf(blueDifference, 564) * rowCount >> 8U;
        const quint32 column = chromaOf(redDifference, 713) * columnCount >> 8U;
        indices[i] = row * columnCount + column;
    }
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
