// Contrasts, stretched to grey values.

// A whole number times 255, divided by another, truncated.
//
// A quotient n / d of whole numbers truncates like (n + 0.5) · (1 / d): that is at least 0.5 / d away from every whole
// number, and rounded by far less, since both numbers are below 2³¹.
VX_ALWAYS_INLINE int stretched(int excess, double reciprocal)
{
    return static_cast<int>(multiplyAdd(excess, 255, 0.5) * reciprocal);
}

// The lowest and the highest whole number by which a contrast may exceed the least one.
struct Bounds {
    int lowest;
    int highest;
};

VX_ALWAYS_INLINE Bounds boundsOf(double contrast, double least, const ErrorBound& bound, int i)
{
    const double error = multiplyAdd(
        multiplyAdd(contrast, bound.slope, bound.offset), bound.ofColumns[i], bound.floor);
    const double excess = contrast - least;
    return { static_cast<int>(excess - error), static_cast<int>(excess + error) };
}

bool stretchContrasts(const double* contrasts, int count, const ErrorBound& bound, double least,
    int range, quint8* __restrict greys)
{
    const ErrorBound own = bound; // a copy that greys cannot alias
    const double reciprocal = 1.0 / range;
    int differences = 0;
    for (int i = 0; i < count; ++i) {
        const Bounds bounds = boundsOf(contrasts[i], least, own, i);
        differences |= bounds.lowest ^ bounds.highest;
        greys[i] = static_cast<quint8>(stretched(bounds.lowest, reciprocal));
    }
    // Few rows get here, and in most of them the grey values do not differ.
    for (int i = 0; differences != 0 && i < count; ++i) {
        const Bounds bounds = boundsOf(contrasts[i], least, own, i);
        if (stretched(bounds.lowest, reciprocal) != stretched(bounds.highest, reciprocal))
            return false;
    }
    return true;
}

constexpr SurroundLoops surroundLoops()
{
    SurroundLoops loops {};
    loops.runLength = lanes;
    loops.smoothAlong = smoothAlong;
    loops.updateSums = updateSums;
    loops.estimateContrasts = estimateContrasts;
    loops.stretchContrasts = stretchContrasts;
    return loops;
}
