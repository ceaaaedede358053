// The whole-number sums that contrasts are estimated from.

VX_ALWAYS_INLINE quint32 smoothed(quint32 before, quint32 here, quint32 after, quint32 mask)
{
    return (before & mask) + 2 * (here & mask) + (after & mask);
}

// Smooths columns whose neighbours may lie outside the row, where there is nothing to add.
VX_ALWAYS_INLINE void smoothEdge(
    const QRgb* pixels, int width, int first, int end, const PackedRow& target)
{
    for (int x = first; x < end; ++x) {
        const QRgb before = x > 0 ? pixels[x - 1] : 0;
        const QRgb after = x + 1 < width ? pixels[x + 1] : 0;
        target.redBlue[x] = smoothed(before, pixels[x], after, redBlueMask);
        target.green[x] = smoothed(before, pixels[x], after, greenMask);
    }
}

// The left edge is a vector wide, so that the vectors after it begin where cache lines do.
void smoothAlong(const QRgb* pixels, int width, const PackedRow& target)
{
    quint32* __restrict const redBlue = target.redBlue;
    quint32* __restrict const green = target.green;
    const int left = lanes < width ? lanes : width;
    const int right = width - 1 > left ? width - 1 : left;
    smoothEdge(pixels, width, 0, left, target);
    for (int x = left; x < right; ++x) {
        redBlue[x] = smoothed(pixels[x - 1], pixels[x], pixels[x + 1], redBlueMask);
        green[x] = smoothed(pixels[x - 1], pixels[x], pixels[x + 1], greenMask);
    }
    smoothEdge(pixels, width, right, width, target);
}

// Adds two rows of pixels and deinterleaves the sums into even and odd columns.
void addTwoRows(const QRgb* a, const QRgb* b, int width, const DeinterleavedRow& sums)
{
    int x = 0;
    for (; x + 2 * lanes <= width; x += 2 * lanes) {
        Words ofA[2];
        Words ofB[2];
        Words part;
        for (std::ptrdiff_t i = 0; i < 2; ++i) {
            load(a + x + i * lanes, ofA[i]);
            load(b + x + i * lanes, ofB[i]);
        }
        const Words redBlue[2] = { (ofA[0] & redBlueMask) + (ofB[0] & redBlueMask),
            (ofA[1] & redBlueMask) + (ofB[1] & redBlueMask) };
        const Words green[2] = { (ofA[0] & greenMask) + (ofB[0] & greenMask),
            (ofA[1] & greenMask) + (ofB[1] & greenMask) };
        deinterleaveEven(redBlue[0], redBlue[1], part);
        store(part, sums.even.redBlue + x / 2);
        deinterleaveOdd(redBlue[0], redBlue[1], part);
        store(part, sums.odd.redBlue + x / 2);
        deinterleaveEven(green[0], green[1], part);
        store(part, sums.even.green + x / 2);
        deinterleaveOdd(green[0], green[1], part);
        store(part, sums.odd.green + x / 2);
    }
    for (; x < width; ++x) {
        const PackedRow& columns = x % 2 == 0 ? sums.even : sums.odd;
        columns.redBlue[x / 2] = (a[x] & redBlueMask) + (b[x] & redBlueMask);
        columns.green[x / 2] = (a[x] & greenMask) + (b[x] & greenMask);
    }
}

template <bool adds> VX_ALWAYS_INLINE void updateVector(quint32* sums, const Words& by)
{
    Words words;
    load(sums, words);
    words = adds ? words + by : words - by;
    store(words, sums);
}

// Updates prefix sums over pairs of columns, one from each row.
//
// A pair has four pixels, so at most 1020 of each channel: the prefix sums over 16 lanes of them fit into the 16 bits
// that red and blue have in a word.
template <bool adds>
VX_ALWAYS_INLINE void updatePairs(const PackedRow& a, const PackedRow& b, const PrefixSums& sums)
{
    for (int i = 0; i < sums.count; i += lanes) {
        Words pairs;
        Words others;
        load(a.redBlue + i, pairs);
        load(b.redBlue + i, others);
        pairs += others;
        prefixSum(pairs);
        updateVector<adds>(sums.red + i, pairs >> 16U);
        updateVector<adds>(sums.blue + i, pairs & 0xFFFFU);
        load(a.green + i, pairs);
        load(b.green + i, others);
        pairs += others;
        prefixSum(pairs);
        updateVector<adds>(sums.green + i, pairs >> 8U);
    }
}

VX_ALWAYS_INLINE PackedRow columnsBefore(const PackedRow& columns)
{
    return { columns.redBlue - 1, columns.green - 1 };
}

// Pair i of the left half is columns 2i - 1 and 2i, which the surround of column i has and that of column i - 1 has
// not. Pair i of the right half is the two columns before the ones that a surround begins with: columns 2i - 2 and
// 2i - 1 of an even width.
template <bool adds> VX_ALWAYS_INLINE void updateHalves(int width, const SurroundSums& sums)
{
    const PackedRow& even = sums.update.even;
    const PackedRow oddBefore = columnsBefore(sums.update.odd);
    updatePairs<adds>(oddBefore, even, sums.left);
    updatePairs<adds>(oddBefore, width % 2 == 0 ? columnsBefore(even) : even, sums.right);
}

void updateSums(const QRgb* a, const QRgb* b, int width, bool adds, const SurroundSums& sums)
{
    addTwoRows(a, b, width, sums.update);
    if (adds)
        updateHalves<true>(width, sums);
    else
        updateHalves<false>(width, sums);
}
