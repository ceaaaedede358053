// The range of numbers.

// So many at once that no comparison waits for the one before it.
constexpr int rangesAtOnce = 32;

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
            const double number = numbers[first + i];
            least[i] = number < least[i] ? number : least[i];
            greatest[i] = number > greatest[i] ? number : greatest[i];
        }
    }
    for (; first < count; ++first) {
        least[0] = numbers[first] < least[0] ? numbers[first] : least[0];
        greatest[0] = numbers[first] > greatest[0] ? numbers[first] : greatest[0];
    }
    for (int i = 0; i < rangesAtOnce; ++i) {
        range.least = least[i] < range.least ? least[i] : range.least;
        range.greatest = greatest[i] > range.greatest ? greatest[i] : range.greatest;
    }
}
