// The loops of the background map.

void addChannels(
    const QRgb* pixels, int count, quint32* __restrict redBlue, quint32* __restrict green)
{
    for (int i = 0; i < count; ++i) {
        redBlue[i] += pixels[i] & redBlueMask;
        green[i] += pixels[i] >> 8U & 0xFFU;
    }
}

// A vector of pixels between two cells.
VX_ALWAYS_INLINE void interpolateVector(float first, float step, const float* shares, QRgb* pixels)
{
    Floats places;
    __builtin_memcpy(&places, shares, sizeof places);
    const Floats rounded = first + step * places + 0.5F;
    const auto greys = reinterpret_cast<Words>(__builtin_convertvector(rounded, Integers));
    store(opaque | greys << 16U | greys << 8U | greys, pixels);
}

// Whole vectors are written even where fewer pixels lie between two cells: the pixels after them overwrite
// the rest.
void interpolateRow(
    const float* greys, const int* ends, int cells, const float* shares, QRgb* pixels)
{
    const int width = ends[cells - 1];
    int x = 0;
    for (int cell = 0; cell < cells; ++cell) {
        const float first = greys[cell];
        const float step = greys[cell + 1] - first;
        for (; x < ends[cell] && x + lanes <= width; x += lanes)
            interpolateVector(first, step, shares + x, pixels + x);
        for (; x < ends[cell]; ++x)
            // NOLINTNEXTLINE(bugprone-incorrect-roundings): grey values are not negative
            pixels[x] = opaqueGrey(static_cast<int>(first + step * shares[x] + 0.5F));
        x = ends[cell];
    }
}

constexpr BackgroundLoops backgroundLoops()
{
    BackgroundLoops loops {};
    loops.addChannels = addChannels;
    loops.interpolateRow = interpolateRow;
    return loops;
}
