// Sums and products that become grey levels.

void writeProducts(const double* values, int count, double factor, QRgb* __restrict pixels)
{
    for (int i = 0; i < count; ++i)
        pixels[i] = opaqueGrey(static_cast<int>(values[i] * factor));
}

void weighReds(const QRgb* pixels, int count, quint32 weight, quint32* __restrict sums)
{
    for (int i = 0; i < count; ++i)
        sums[i] = (pixels[i] >> 16U & 0xFFU) * weight;
}

void addWeightedReds(const QRgb* pixels, int count, quint32 weight, quint32* __restrict sums)
{
    for (int i = 0; i < count; ++i)
        sums[i] += (pixels[i] >> 16U & 0xFFU) * weight;
}

// Sums are brought to the sign of the divisor, so that the quotients that count are not negative; for
// the product with the reciprocal see writeLevels(). Doubles hold all of it: a sum of -2³¹ turns
// positive here, as it does in its quotient by any divisor but -1. There the quotient wraps, and the
// sums turn their sign as integers.
void divideSums(quint32* sums, int count, int divisor)
{
    const bool wraps = divisor == -1;
    const quint32 flip = wraps ? 0xFFFFFFFFU : 0;
    const double sign = divisor < 0 && !wraps ? -1.0 : 1.0;
    const double reciprocal = wraps ? 1.0 : 1.0 / (sign * divisor);
    for (int i = 0; i < count; ++i) {
        const auto ownSign = static_cast<qint32>((sums[i] ^ flip) - flip);
        const double sum = ownSign * sign;
        const double level = ((sum > 0.0 ? sum : 0.0) + 0.5) * reciprocal;
        sums[i] = opaqueGrey(static_cast<int>(level < 255.0 ? level : 255.0));
    }
}
