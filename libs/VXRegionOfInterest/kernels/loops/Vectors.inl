// Vectors of numbers, as compilers that know GNU C offer them: arithmetic in every lane at once.

template <int count> struct VectorOf {
    using Doubles __attribute__((vector_size(8 * count))) = double;
    using Words __attribute__((vector_size(4 * count))) = quint32;
    using Ints __attribute__((vector_size(4 * count))) = qint32;
    using Masks __attribute__((vector_size(8 * count))) = qint64;
};
template <int count> using DoublesOf = typename VectorOf<count>::Doubles;
template <int count> using WordsOf = typename VectorOf<count>::Words;
template <int count> using IntsOf = typename VectorOf<count>::Ints;
template <int count> using MasksOf = typename VectorOf<count>::Masks;

// As many doubles as this processor has in a register.
#if defined(__AVX512F__)
constexpr int lanes = 8;
#elif defined(__AVX__)
constexpr int lanes = 4;
#else
constexpr int lanes = 2;
#endif
using Doubles = DoublesOf<lanes>;

// The lanes of two vectors that a list tells, which is one of three for vectors of as many lanes.
#define VX_LIST(...) __VA_ARGS__
#if defined(__AVX512F__)
#define VX_SHUFFLED(a, b, ofTwo, ofFour, ofEight) __builtin_shufflevector(a, b, VX_LIST ofEight)
#elif defined(__AVX__)
#define VX_SHUFFLED(a, b, ofTwo, ofFour, ofEight) __builtin_shufflevector(a, b, VX_LIST ofFour)
#else
#define VX_SHUFFLED(a, b, ofTwo, ofFour, ofEight) __builtin_shufflevector(a, b, VX_LIST ofTwo)
#endif

VX_ALWAYS_INLINE void toDoubles(const WordsOf<2>& words, DoublesOf<2>& doubles)
{
    doubles = __builtin_convertvector(reinterpret_cast<IntsOf<2>>(words), DoublesOf<2>);
}

// GCC 12 makes several instructions of the general way where there is one.
VX_ALWAYS_INLINE void toDoubles(const WordsOf<4>& words, DoublesOf<4>& doubles)
{
#ifdef __AVX__
    doubles = _mm256_cvtepi32_pd(reinterpret_cast<__m128i>(words));
#else
    doubles = __builtin_convertvector(reinterpret_cast<IntsOf<4>>(words), DoublesOf<4>);
#endif
}

#ifdef __AVX512F__
VX_ALWAYS_INLINE void toDoubles(const WordsOf<8>& words, DoublesOf<8>& doubles)
{
    constexpr __mmask8 everyLane = 0xFF;
    doubles = _mm512_maskz_cvtepi32_pd(everyLane, reinterpret_cast<__m256i>(words));
}
#endif

// Luma and chroma of so many pixels.
template <int count> struct Channels {
    DoublesOf<count> of[channelCount];
};

template <int count>
VX_ALWAYS_INLINE void convert(const WordsOf<count>& pixels, Channels<count>& channels)
{
    DoublesOf<count> red;
    DoublesOf<count> green;
    DoublesOf<count> blue;
    toDoubles(pixels >> 16U & 0xFFU, red);
    toDoubles(pixels >> 8U & 0xFFU, green);
    toDoubles(pixels & 0xFFU, blue);
    toLumaChroma(red, green, blue, channels.of[0], channels.of[1], channels.of[2]);
}

// What lies one column to the left: the last lane of the columns before, and all but the last.
VX_ALWAYS_INLINE void shiftLeft(const Doubles& before, const Doubles& here, Doubles& shifted)
{
    shifted = VX_SHUFFLED(before, here, (1, 2), (3, 4, 5, 6), (7, 8, 9, 10, 11, 12, 13, 14));
}

// What lies one column to the right.
VX_ALWAYS_INLINE void shiftRight(const Doubles& here, const Doubles& after, Doubles& shifted)
{
    shifted = VX_SHUFFLED(here, after, (1, 2), (1, 2, 3, 4), (1, 2, 3, 4, 5, 6, 7, 8));
}
