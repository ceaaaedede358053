// Contrasts become levels.

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

constexpr SurroundLoops surroundLoops()
{
    SurroundLoops loops {};
    loops.runLength = lanes;
    loops.smoothAlong = smoothAlong;
    loops.moveSurrounds = moveSurrounds;
    loops.estimateContrasts = estimateContrasts;
    loops.writeLevels = writeLevels;
    return loops;
}
