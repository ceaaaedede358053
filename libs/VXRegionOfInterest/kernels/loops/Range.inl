// The range of numbers.

// One in each lane.
struct Ranges {
    Doubles least;
    Doubles greatest;
};

// What fills no vector goes to the range itself.
VX_ALWAYS_INLINE void widenRanges(
    const double* numbers, std::ptrdiff_t count, Ranges& ranges, Range& range)
{
    std::ptrdiff_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        Doubles next;
        __builtin_memcpy(&next, numbers + i, sizeof next);
        ranges.least = next < ranges.least ? next : ranges.least;
        ranges.greatest = next > ranges.greatest ? next : ranges.greatest;
    }
    for (; i < count; ++i) {
        range.least = numbers[i] < range.least ? numbers[i] : range.least;
        range.greatest = numbers[i] > range.greatest ? numbers[i] : range.greatest;
    }
}

VX_ALWAYS_INLINE void beginRanges(const Range& range, Ranges& ranges)
{
    ranges = { Doubles {} + range.least, Doubles {} + range.greatest };
}

VX_ALWAYS_INLINE void endRanges(const Ranges& ranges, Range& range)
{
    for (int lane = 0; lane < lanes; ++lane) {
        range.least = ranges.least[lane] < range.least ? ranges.least[lane] : range.least;
        range.greatest
            = ranges.greatest[lane] > range.greatest ? ranges.greatest[lane] : range.greatest;
    }
}

void widenRange(const double* numbers, std::ptrdiff_t count, Range& range)
{
    Ranges ranges;
    beginRanges(range, ranges);
    widenRanges(numbers, count, ranges, range);
    endRanges(ranges, range);
}
