// The loops of the blend.

void addWeighted(const quint8* values, int count, quint32 weight, quint32* __restrict sums)
{
    for (int i = 0; i < count; ++i)
        sums[i] += values[i] * weight;
}

// The quotient n / d truncates like (n + 0.5) · (1 / d), as in stretched(), where both are positive. So a negative divisor
// changes the sign of the sums; quotients that come out negative are clamped anyway. In double precision -2³¹ becomes
// positive that way, as it does when it is divided by any negative divisor but -1. That quotient wraps, so for -1 the
// sums change their sign as integers.
void divideSums(const quint32* sums, int count, int divisor, QRgb* __restrict pixels)
{
    const bool wraps = divisor == -1;
    const quint32 flip = wraps ? 0xFFFFFFFFU : 0;
    const double sign = divisor < 0 && !wraps ? -1.0 : 1.0;
    const double reciprocal = wraps ? 1.0 : 1.0 / (sign * divisor);
    for (int i = 0; i < count; ++i) {
        const auto sum = static_cast<qint32>((sums[i] ^ flip) - flip);
        const int quotient = static_cast<int>((sum * sign + 0.5) * reciprocal);
        const int atLeastBlack = quotient > 0 ? quotient : 0;
        pixels[i] = opaqueGrey(atLeastBlack < 255 ? atLeastBlack : 255);
    }
}

// The quotient n / d truncates like (n + 0.5) · (1 / d), in single precision: that is rounded by less than
// 2¹⁶ · 2⁻²³ / d, and at least 0.5 / d away from every whole number.
void blendFew(const WeightedBytes* maps, int count, int divisor, QRgb* __restrict pixels)
{
    static_assert(mapsAtOnce == 5, "five are added below");
    const WeightedBytes a = maps[0];
    const WeightedBytes b = maps[1];
    const WeightedBytes c = maps[2];
    const WeightedBytes d = maps[3];
    const WeightedBytes e = maps[4];
    const float reciprocal = 1.0F / static_cast<float>(divisor);
    for (int i = 0; i < count; ++i) {
        const auto ofTwo = static_cast<qint16>(a.bytes[i] * a.weight + b.bytes[i] * b.weight);
        const auto ofOthers = static_cast<qint16>(c.bytes[i] * c.weight + d.bytes[i] * d.weight);
        const auto sum = static_cast<qint16>(ofTwo + ofOthers + e.bytes[i] * e.weight);
        const int quotient = static_cast<int>((static_cast<float>(sum) + 0.5F) * reciprocal);
        const int atLeastBlack = quotient > 0 ? quotient : 0;
        pixels[i] = opaqueGrey(atLeastBlack < 255 ? atLeastBlack : 255);
    }
}

constexpr BlendLoops blendLoops()
{
    BlendLoops loops {};
    loops.addWeighted = addWeighted;
    loops.divideSums = divideSums;
    loops.blendFew = blendFew;
    return loops;
}
