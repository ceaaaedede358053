// The range of numbers.

void widenRange(const double* numbers, std::ptrdiff_t count, Range& range)
{
    constexpr auto lanes = static_cast<std::ptrdiff_t>(sizeof(Doubles) / sizeof(double));
    Doubles least = Doubles {} + range.least;
    Doubles greatest = Doubles {} + range.greatest;
    std::ptrdiff_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        Doubles next;
        __builtin_memcpy(&next, numbers + i, sizeof next);
        least = next < least ? next : least;
        greatest = next > greatest ? next : greatest;
    }
    for (; i < count; ++i) {
        range.least = numbers[i] < range.least ? numbers[i] : range.least;
        range.greatest = numbers[i] > range.greatest ? numbers[i] : range.greatest;
    }
    for (std::ptrdiff_t lane = 0; lane < lanes; ++lane) {
        range.least = least[lane] < range.least ? least[lane] : range.least;
        range.greatest = greatest[lane] > range.greatest ? greatest[lane] : range.greatest;
    }
}
