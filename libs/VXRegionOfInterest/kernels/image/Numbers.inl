// Loops over arrays of numbers.

// Ranges of every 32nd number, side by side, so that no comparison waits for the one before it.
constexpr int rangesAtOnce = 32;

VX_ALWAYS_INLINE double lesser(double a, double b) { return a < b ? a : b; }
VX_ALWAYS_INLINE double greater(double a, double b) { return a > b ? a : b; }

void widenRange(const double* numbers, std::ptrdiff_t count, Range& range)
{
    double least[rangesAtOnce];
    double greatest[rangesAtOnce];
    for (int i = 0; i < rangesAtOnce; ++i) {
        least[i] = range.least;
        greatest[i] = range.greatest;
    }
    std::ptrdiff_t first = 0;
    for (; first + rangesAtOnce <= count; first += rangesAtOnce) {
        for (int i = 0; i < rangesAtOnce; ++i) {
            least[i] = lesser(numbers[first + i], least[i]);
            greatest[i] = greater(numbers[first + i], greatest[i]);
        }
    }
    for (; first < count; ++first) {
        least[0] = lesser(numbers[first], least[0]);
        greatest[0] = greater(numbers[first], greatest[0]);
    }
    for (int half = rangesAtOnce / 2; half > 0; half /= 2) {
        for (int i = 0; i < half; ++i) {
            least[i] = lesser(least[i + half], least[i]);
            greatest[i] = greater(greatest[i + half], greatest[i]);
        }
    }
    range = { least[0], greatest[0] };
}

void writeProducts(const double* values, int count, double factor, quint8* __restrict truncated)
{
    for (int i = 0; i < count; ++i)
        truncated[i] = static_cast<quint8>(static_cast<int>(values[i] * factor));
}

constexpr NumberLoops numberLoops()
{
    NumberLoops loops {};
    loops.widenRange = widenRange;
    loops.writeProducts = writeProducts;
    return loops;
}
