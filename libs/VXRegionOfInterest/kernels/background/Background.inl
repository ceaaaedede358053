// Loops of the background map.

void addChannels(
    const QRgb* pixels, int count, quint32* __restrict redBlue, quint32* __restrict green)
{
    for (int i = 0; i < count; ++i) {
        redBlue[i] += pixels[i] & 0x00FF00FFU;
        green[i] += pixels[i] >> 8U & 0xFFU;
    }
}

// As many pixels as a vector has, beginning between two cells.
VX_ALWAYS_INLINE void writeVectorBetween(float level, float step, const float* shares, QRgb* pixels)
{
    Floats places;
    __builtin_memcpy(&places, shares, sizeof places);
    const Floats levels = level + step * places + 0.5F;
    const auto greys = reinterpret_cast<Words>(__builtin_convertvector(levels, Integers));
    store(0xFF000000U | greys << 16U | greys << 8U | greys, pixels);
}

// Whole vectors are written even where fewer pixels lie between two cells: those that follow overwrite
// the rest.
void writeBetween(
    const float* levels, const int* ends, int cells, const float* shares, QRgb* pixels)
{
    const int width = ends[cells - 1];
    int x = 0;
    for (int cell = 0; cell < cells; ++cell) {
        const float level = levels[cell];
        const float step = levels[cell + 1] - level;
        for (; x < ends[cell] && x + lanes <= width; x += lanes)
            writeVectorBetween(level, step, shares + x, pixels + x);
        for (; x < ends[cell]; ++x)
            // NOLINTNEXTLINE(bugprone-incorrect-roundings): levels are not negative
            pixels[x] = opaqueGrey(static_cast<int>(level + step * shares[x] + 0.5F));
        x = ends[cell];
    }
}

constexpr BackgroundLoops backgroundLoops()
{
    BackgroundLoops loops {};
    loops.addChannels = addChannels;
    loops.writeBetween = writeBetween;
    return loops;
}
