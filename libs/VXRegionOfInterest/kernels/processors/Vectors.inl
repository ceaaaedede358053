// Vectors of numbers, in the GNU dialect that GCC and clang share: arithmetic in every lane at once.

// The number of 32-bit lanes of this processor's registers.
#if defined(__AVX512F__)
constexpr int lanes = 16;
#elif defined(__AVX2__)
constexpr int lanes = 8;
#else
constexpr int lanes = 4;
#endif
using Words __attribute__((vector_size(4 * lanes))) = quint32;
using Integers __attribute__((vector_size(4 * lanes))) = qint32;
using Floats __attribute__((vector_size(4 * lanes))) = float;

// Shuffles the lanes of two vectors. Of the three lists of indices, the one counts that is made for vectors of as many
// lanes as this processor has.
#define VX_LIST(...) __VA_ARGS__
#if defined(__AVX512F__)
#define VX_SHUFFLED(a, b, ofFour, ofEight, ofSixteen)                                              \
    __builtin_shufflevector(a, b, VX_LIST ofSixteen)
#elif defined(__AVX2__)
#define VX_SHUFFLED(a, b, ofFour, ofEight, ofSixteen) __builtin_shufflevector(a, b, VX_LIST ofEight)
#else
#define VX_SHUFFLED(a, b, ofFour, ofEight, ofSixteen) __builtin_shufflevector(a, b, VX_LIST ofFour)
#endif

VX_ALWAYS_INLINE void load(const quint32* numbers, Words& words)
{
    __builtin_memcpy(&words, numbers, sizeof words);
}

VX_ALWAYS_INLINE void store(const Words& words, quint32* numbers)
{
    __builtin_memcpy(numbers, &words, sizeof words);
}

// Deinterleaves two vectors: lanes 0, 2, 4 ... of both.
VX_ALWAYS_INLINE void deinterleaveEven(const Words& a, const Words& b, Words& even)
{
    even = VX_SHUFFLED(a, b, (0, 2, 4, 6), (0, 2, 4, 6, 8, 10, 12, 14),
        (0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30));
}

// Deinterleaves two vectors: lanes 1, 3, 5 ... of both.
VX_ALWAYS_INLINE void deinterleaveOdd(const Words& a, const Words& b, Words& odd)
{
    odd = VX_SHUFFLED(a, b, (1, 3, 5, 7), (1, 3, 5, 7, 9, 11, 13, 15),
        (1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27, 29, 31));
}

// Multiplies and adds pairs: in every lane, lower half times lower half plus upper half times upper half, of signed
// numbers of 16 bits; \a factors is the same for all lanes. Compilers multiply all 32 bits instead, which takes twice
// as long.
VX_ALWAYS_INLINE void multiplyAddPairs(const Words& words, quint32 factors, Words& sums)
{
    const Words times = Words {} + factors;
#if defined(__AVX512BW__)
    sums = reinterpret_cast<Words>(
        _mm512_madd_epi16(reinterpret_cast<__m512i>(words), reinterpret_cast<__m512i>(times)));
#elif defined(__AVX2__) && !defined(__AVX512F__)
    sums = reinterpret_cast<Words>(
        _mm256_madd_epi16(reinterpret_cast<__m256i>(words), reinterpret_cast<__m256i>(times)));
#elif defined(__SSE2__) && !defined(__AVX2__)
    sums = reinterpret_cast<Words>(
        _mm_madd_epi16(reinterpret_cast<__m128i>(words), reinterpret_cast<__m128i>(times)));
#else
    const Integers lower = reinterpret_cast<Integers>(words << 16U) >> 16;
    const Integers upper = reinterpret_cast<Integers>(words) >> 16;
    sums = reinterpret_cast<Words>(lower * (reinterpret_cast<Integers>(times << 16U) >> 16)
        + upper * (reinterpret_cast<Integers>(times) >> 16));
#endif
}

// The inclusive prefix sum over the lanes. Each step adds the lane that is 1, 2, 4 or 8 before, which doubles the
// number of lanes that a sum has.
VX_ALWAYS_INLINE void prefixSum(Words& words)
{
    const Words none {};
    words += VX_SHUFFLED(none, words, (3, 4, 5, 6), (7, 8, 9, 10, 11, 12, 13, 14),
        (15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30));
    words += VX_SHUFFLED(none, words, (2, 3, 4, 5), (6, 7, 8, 9, 10, 11, 12, 13),
        (14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29));
#ifdef __AVX2__
    words += VX_SHUFFLED(none, words, (), (4, 5, 6, 7, 8, 9, 10, 11),
        (12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27));
#endif
#ifdef __AVX512F__
    words += VX_SHUFFLED(
        none, words, (), (), (8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23));
#endif
}
