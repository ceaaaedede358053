// What surrounds are made of, in whole numbers, so that sums may be formed in any order.

constexpr quint32 redBlueMask = 0x00FF00FFU;
constexpr quint32 greenMask = 0x0000FF00U;

VX_ALWAYS_INLINE quint32 smoothed(quint32 before, quint32 here, quint32 after, quint32 mask)
{
    return (before & mask) + 2 * (here & mask) + (after & mask);
}

// Weights 1, 2, 1; outside the row there is nothing to add.
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

// Between the edges, vectors are stored where cache lines begin.
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

// The sums of pixels of two rows, even and odd columns apart.
void addTwoRows(const QRgb* a, const QRgb* b, int width, const PackedColumns& sums)
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
        takeEven(redBlue[0], redBlue[1], part);
        store(part, sums.even.redBlue + x / 2);
        takeOdd(redBlue[0], redBlue[1], part);
        store(part, sums.odd.redBlue + x / 2);
        takeEven(green[0], green[1], part);
        store(part, sums.even.green + x / 2);
        takeOdd(green[0], green[1], part);
        store(part, sums.odd.green + x / 2);
    }
    for (; x < width; ++x) {
        const PackedRow& columns = x % 2 == 0 ? sums.even : sums.odd;
        columns.redBlue[x / 2] = (a[x] & redBlueMask) + (b[x] & redBlueMask);
        columns.green[x / 2] = (a[x] & greenMask) + (b[x] & greenMask);
    }
}

template <bool adds> VX_ALWAYS_INLINE void moveSums(quint32* sums, const Words& by)
{
    Words words;
    load(sums, words);
    words = adds ? words + by : words - by;
    store(words, sums);
}

// A pair of columns has four pixels, so at most 1020 of each channel: what 16 lanes of them add up to
// does not outgrow the 16 bits that reds and blues have.
template <bool adds>
VX_ALWAYS_INLINE void movePairs(const PackedRow& a, const PackedRow& b, const SurroundSums& sums)
{
    for (int i = 0; i < sums.count; i += lanes) {
        Words pairs;
        Words others;
        load(a.redBlue + i, pairs);
        load(b.redBlue + i, others);
        pairs += others;
        sumUp(pairs);
        moveSums<adds>(sums.red + i, pairs >> 16U);
        moveSums<adds>(sums.blue + i, pairs & 0xFFFFU);
        load(a.green + i, pairs);
        load(b.green + i, others);
        pairs += others;
        sumUp(pairs);
        moveSums<adds>(sums.green + i, pairs >> 8U);
    }
}

VX_ALWAYS_INLINE PackedRow columnsBefore(const PackedRow& columns)
{
    return { columns.redBlue - 1, columns.green - 1 };
}

// Pairs of the left half are columns 2i - 1 and 2i. Those of the right half are two columns earlier
// than the ones that the surround begins with: columns 2i - 2 and 2i - 1 of an even width.
template <bool adds> VX_ALWAYS_INLINE void moveHalves(int width, const Surrounds& surrounds)
{
    const PackedRow& even = surrounds.moved.even;
    const PackedRow oddBefore = columnsBefore(surrounds.moved.odd);
    movePairs<adds>(oddBefore, even, surrounds.left);
    movePairs<adds>(oddBefore, width % 2 == 0 ? columnsBefore(even) : even, surrounds.right);
}

void moveSurrounds(const QRgb* a, const QRgb* b, int width, bool adds, const Surrounds& surrounds)
{
    addTwoRows(a, b, width, surrounds.moved);
    if (adds)
        moveHalves<true>(width, surrounds);
    else
        moveHalves<false>(width, surrounds);
}
