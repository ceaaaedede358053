// The loops of the edge response, on channels as 16-bit numbers.

void deinterleave(const QRgb* pixels, int count, const PlanarRow& channels)
{
    qint16* __restrict const red = channels.of[0];
    qint16* __restrict const green = channels.of[1];
    qint16* __restrict const blue = channels.of[2];
    for (int i = 0; i < count; ++i) {
        red[i] = static_cast<qint16>(pixels[i] >> 16U & 0xFFU);
        green[i] = static_cast<qint16>(pixels[i] >> 8U & 0xFFU);
        blue[i] = static_cast<qint16>(pixels[i] & 0xFFU);
    }
}

// The absolute value of a channel's weighted sum over a neighbourhood.
VX_ALWAYS_INLINE int absoluteSum(
    const PlanarRow* rows, int channel, std::ptrdiff_t x, const qint16* kernel)
{
    qint16 sum = 0;
#pragma GCC unroll 3
    for (int row = 0; row < 3; ++row) {
        const qint16* const values = rows[row].of[channel] + x - 1;
        for (int column = 0; column < 3; ++column)
            sum = static_cast<qint16>(sum + kernel[3 * row + column] * values[column]);
    }
    return sum < 0 ? -sum : sum;
}

// The quotient n / d truncates like (n + 0.5) · (1 / d), in single precision: the sum n of the channels is below 2²² and
// the divisor d a whole number, so that product is at least 0.5 / d away from every whole number, and rounded by less.
void respondAlongRow(const PlanarRow* rows, int width, const qint16* kernel, int divisor,
    const QRgb* source, QRgb* __restrict target)
{
    const float reciprocal = 1.0F / static_cast<float>(divisor);
    for (std::ptrdiff_t x = 1; x < width - 1; ++x) {
        const int strength = absoluteSum(rows, 0, x, kernel) + absoluteSum(rows, 1, x, kernel)
            + absoluteSum(rows, 2, x, kernel);
        const int level = static_cast<int>((static_cast<float>(strength) + 0.5F) * reciprocal);
        target[x] = (source[x] & opaque) | grey(static_cast<QRgb>(level) & 0xFFU);
    }
}

// The sum of the squares is below 2¹⁷. Its root in single precision truncates like the exact one, which is further
// below the next whole number than rounding reaches.
void writeMagnitudes(const QRgb* across, const QRgb* down, int count, QRgb* __restrict magnitudes)
{
    for (int i = 0; i < count; ++i) {
        const int a = static_cast<int>(across[i] >> 16U & 0xFFU);
        const int b = static_cast<int>(down[i] >> 16U & 0xFFU);
        const int magnitude = static_cast<int>(__builtin_sqrtf(static_cast<float>(a * a + b * b)));
        magnitudes[i] = (across[i] & opaque) | grey(static_cast<QRgb>(magnitude) & 0xFFU);
    }
}

constexpr EdgeLoops edgeLoops()
{
    EdgeLoops loops {};
    loops.deinterleave = deinterleave;
    loops.respondAlongRow = respondAlongRow;
    loops.writeMagnitudes = writeMagnitudes;
    return loops;
}
