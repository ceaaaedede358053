// Loops over rows of pixels.

void writeOpaqueGrey(const quint8* greys, int count, QRgb* __restrict pixels)
{
    for (int i = 0; i < count; ++i)
        pixels[i] = opaqueGrey(greys[i]);
}

bool isUniform(const QRgb* pixels, int count, QRgb word)
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
    // Sums over a chunk fit into 32 bits.
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

constexpr PixelLoops pixelLoops()
{
    PixelLoops loops {};
    loops.writeOpaqueGrey = writeOpaqueGrey;
    loops.isUniform = isUniform;
    loops.readReds = readReds;
    loops.addReds = addReds;
    loops.measureReds = measureReds;
    loops.packLumaChroma = packLumaChroma;
    return loops;
}
