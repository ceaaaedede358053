// Vectors of words, as compilers that know GNU C offer them: arithmetic in every lane at once.

// As many as this processor has in a register.
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

// The lanes of two vectors that a list tells, which is one of three for vectors of as many lanes.
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

// Every second one of two vectors' lanes, from the first on.
VX_ALWAYS_INLINE void takeEven(const Words& a, const Words& b, Words& even)
{
    even = VX_SHUFFLED(a, b, (0, 2, 4, 6), (0, 2, 4, 6, 8, 10, 12, 14),
        (0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30));
}

// The others.
VX_ALWAYS_INLINE void takeOdd(const Words& a, const Words& b, Words& odd)
{
    odd = VX_SHUFFLED(a, b, (1, 3, 5, 7), (1, 3, 5, 7, 9, 11, 13, 15),
        (1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27, 29, 31));
}

// The signed numbers in the lower and upper 16 bits of \a words times those of every lane's \a factors,
// added up. Compilers multiply all 32 bits instead, which takes twice as long.
VX_ALWAYS_INLINE void multiplyHalves(const Words& words, quint32 factors, Words& sums)
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

// Makes of each lane the sum of all up to it: adding what is one lane before, then two, then four,
// doubles how many each has got.
VX_ALWAYS_INLINE void sumUp(Words& words)
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
