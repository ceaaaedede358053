// Sums and products that become grey levels.

// A whole number n divided by another, d, truncates like (n + 0.5) · (1 / d): that is at least 0.5 /
// d away from every whole number, and rounded by far less, since both are below 2³¹.
VX_ALWAYS_INLINE int stretch(int above, double reciprocal)
{
    return static_cast<int>(multiplyAdd(above, 255, 0.5) * reciprocal);
}

// The lowest and the highest whole number that a contrast may have over the least one.
struct Bounds {
    int lowest;
    int highest;
};

VX_ALWAYS_INLINE Bounds boundsOf(double contrast, double least, const Tolerance& tolerance, int i)
{
    const double distance = multiplyAdd(multiplyAdd(contrast, tolerance.slope, tolerance.offset),
        tolerance.ofColumns[i], tolerance.floor);
    const double above = contrast - least;
    return { static_cast<int>(above - distance), static_cast<int>(above + distance) };
}

bool writeLevels(const double* contrasts, int count, const Tolerance& tolerance, double least,
    int range, quint8* __restrict levels)
{
    const Tolerance own = tolerance;
    const double reciprocal = 1.0 / range;
    int differences = 0;
    for (int i = 0; i < count; ++i) {
        const Bounds bounds = boundsOf(contrasts[i], least, own, i);
        differences |= bounds.lowest ^ bounds.highest;
        levels[i] = static_cast<quint8>(stretch(bounds.lowest, reciprocal));
    }
    // Few rows get here, and most of them with levels that do not differ.
    for (int i = 0; differences != 0 && i < count; ++i) {
        const Bounds bounds = boundsOf(contrasts[i], least, own, i);
        if (stretch(bounds.lowest, reciprocal) != stretch(bounds.highest, reciprocal))
            return false;
    }
    return true;
}

void writeProducts(const double* values, int count, double factor, quint8* __restrict levels)
{
    for (int i = 0; i < count; ++i)
        levels[i] = static_cast<quint8>(static_cast<int>(values[i] * factor));
}

void writeGrey(const quint8* levels, int count, QRgb* __restrict pixels)
{
    for (int i = 0; i < count; ++i)
        pixels[i] = opaqueGrey(levels[i]);
}

bool areAll(const QRgb* pixels, int count, QRgb word)
{
    QRgb differences = 0;
    for (int i = 0; i < count; ++i)
        differences |= pixels[i] ^ word;
    return differences == 0;
}

void readReds(const QRgb* pixels, int count, quint8* __restrict reds)
{
    for (int i = 0; i < count; ++i)
        reds[i] = static_cast<quint8>(pixels[i] >> 16U & 0xFFU);
}

void addReds(const QRgb* pixels, int count, quint32* __restrict sums)
{
    for (int i = 0; i < count; ++i)
        sums[i] += pixels[i] >> 16U & 0xFFU;
}

RedMeasure measureReds(const QRgb* pixels, int count, int mean)
{
    // So few that their sums fit into 32 bits.
    constexpr int chunk = 1 << 16;
    RedMeasure all = {};
    for (int first = 0; first < count; first += chunk) {
        const int end = count - first < chunk ? count : first + chunk;
        quint32 sum = 0;
        quint32 excess = 0;
        quint32 above = 0;
        for (int i = first; i < end; ++i) {
            const int red = static_cast<int>(pixels[i] >> 16U & 0xFFU);
            sum += static_cast<quint32>(red);
            excess += static_cast<quint32>(red > mean ? red - mean : 0);
            above += red > mean ? 1U : 0U;
        }
        all = { all.sum + sum, all.excess + excess, all.above + above };
    }
    return all;
}

void addWeighted(const quint8* values, int count, quint32 weight, quint32* __restrict sums)
{
    for (int i = 0; i < count; ++i)
        sums[i] += values[i] * weight;
}

// Sums are brought to the sign of the divisor, so that the quotients that count are not negative; for
// the product with the reciprocal see stretch(). Doubles hold all of it: a sum of -2³¹ turns
// positive here, as it does in its quotient by any divisor but -1. There the quotient wraps, and the
// sums turn their sign as integers.
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

// In single precision (n + 0.5) / d is rounded by less than 2¹⁶ · 2⁻²³ / d, and so by less than it is
// away from every whole number.
void blendFew(const WeightedBytes* maps, int count, int divisor, QRgb* __restrict pixels)
{
    static_assert(mapsAtOnce == 5, "as many are added below");
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
