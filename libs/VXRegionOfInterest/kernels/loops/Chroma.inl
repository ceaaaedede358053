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

// The bits of a zero are all 0 beside the sign.
void findZeroRows(const double* values, int rows, int columns, quint8* isZero)
{
    for (int row = 0; row < rows; ++row) {
        quint64 bits = 0;
        for (int column = 0; column < columns; ++column) {
            quint64 next;
            __builtin_memcpy(&next, values++, sizeof next);
            bits |= next << 1U;
        }
        isZero[row] = bits == 0;
    }
}
