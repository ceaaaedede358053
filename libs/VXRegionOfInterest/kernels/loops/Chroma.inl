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

// The bits of a zero are all 0 beside the sign.
bool areZero(const double* values, int count)
{
    quint64 bits = 0;
    for (int i = 0; i < count; ++i) {
        quint64 next;
        __builtin_memcpy(&next, values + i, sizeof next);
        bits |= next << 1U;
    }
    return bits == 0;
}
