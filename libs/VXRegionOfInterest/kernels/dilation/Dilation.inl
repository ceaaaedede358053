// The loops of the dilation, over red values as bytes.

// A register of this processor.
#if defined(__AVX512BW__)
using Bytes = quint8 __attribute__((vector_size(64)));
#elif defined(__AVX2__)
using Bytes = quint8 __attribute__((vector_size(32)));
#else
using Bytes = quint8 __attribute__((vector_size(16)));
#endif

bool thresholdReds(
    const QRgb* pixels, int count, int threshold, QRgb alphaMask, quint8* __restrict keys)
{
    QRgb differences = 0;
    for (int i = 0; i < count; ++i) {
        const QRgb red = pixels[i] >> 16U & 0xFFU;
        const QRgb above = static_cast<int>(red) > threshold ? 0xFFFFFFFFU : 0;
        differences |= ((pixels[i] | alphaMask) ^ opaqueGrey(static_cast<int>(red))) & above;
        keys[i] = static_cast<quint8>(red & above);
    }
    return differences == 0;
}

// A threshold below 0 keeps every byte, as one of 0 does: the keys of zeros are 0 either way.
bool thresholdBytes(
    const quint8* bytes, std::ptrdiff_t count, int threshold, quint8* __restrict keys)
{
    const auto limit = static_cast<quint8>(threshold < 0 ? 0 : threshold < 255 ? threshold : 255);
    quint8 any = 0;
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        const quint8 byte = bytes[i];
        const auto key = static_cast<quint8>(byte > limit ? byte : 0);
        keys[i] = key;
        any = static_cast<quint8>(any | key);
    }
    return any != 0;
}

VX_ALWAYS_INLINE void greaterBytes(const quint8* a, const quint8* b, Bytes& greater)
{
    Bytes left;
    Bytes right;
    __builtin_memcpy(&left, a, sizeof left);
    __builtin_memcpy(&right, b, sizeof right);
    greater = left > right ? left : right;
}

// Every vector is loaded before its place in the result, which may be that of an argument, is overwritten; so is the
// last one, which may overlap the one before it. Written by hand, because the compiler cannot know that.
void writeMaxima(const quint8* a, const quint8* b, std::ptrdiff_t count, quint8* maxima)
{
    constexpr auto size = static_cast<std::ptrdiff_t>(sizeof(Bytes));
    if (count < size) {
        for (std::ptrdiff_t i = 0; i < count; ++i)
            maxima[i] = a[i] > b[i] ? a[i] : b[i];
        return;
    }
    const std::ptrdiff_t lastFirst = count - size;
    Bytes last;
    greaterBytes(a + lastFirst, b + lastFirst, last);
    for (std::ptrdiff_t i = 0; i < lastFirst; i += size) {
        Bytes greater;
        greaterBytes(a + i, b + i, greater);
        __builtin_memcpy(maxima + i, &greater, sizeof greater);
    }
    __builtin_memcpy(maxima + lastFirst, &last, sizeof last);
}

void dilateRow(
    const quint8* a, const quint8* b, int count, const QRgb* source, QRgb* __restrict target)
{
    for (int i = 0; i < count; ++i) {
        const quint8 key = a[i] > b[i] ? a[i] : b[i];
        target[i] = key > (source[i] >> 16U & 0xFFU) ? opaqueGrey(key) : source[i];
    }
}

constexpr DilationLoops dilationLoops()
{
    DilationLoops loops {};
    loops.thresholdReds = thresholdReds;
    loops.thresholdBytes = thresholdBytes;
    loops.writeMaxima = writeMaxima;
    loops.dilateRow = dilateRow;
    return loops;
}
