// Packs of doubles: a formula written as a template over the number type T runs for one double and for 2, 4 or 8 at a
// time, with the same operations in the same order and so the same bits in every lane.
//
//     template <class T> T parabola(T x) { return select(x > 0.0, x * x, T(0.0)); }
//
// A condition is a bool for double and a mask for packs: joined by & | !, asked by any() and all(), used by select(),
// which computes both sides. What only a few lanes need is done for these alone, by in_lanes().
//
// The same header is compiled for several instruction sets. Everything that a kernel uses therefore lives in an inline
// namespace that carries the set's name: the linker must never put one set's function in the place of another's.
#ifndef KL_SRC_NUMBERS_PACK_H
#define KL_SRC_NUMBERS_PACK_H

#include <cstdint>
#include <cstring>
#include <math.h> // the functions of double by their plain names, beside those of packs

#if defined(__SSE2__)
#include <immintrin.h>
#endif

// The instruction set of this translation unit; kitlib_kernels() in CMakeLists.txt sets it for kernels.
#ifndef KL_SET
#define KL_SET set_ordinary
#endif

inline namespace KL_SET {

// The compilers' own vectors.
template <int N>
struct Registers;
template <>
struct Registers<2> {
    using Doubles = double __attribute__((vector_size(16)));
    using Signed = std::int64_t __attribute__((vector_size(16)));
    using Bits = std::uint64_t __attribute__((vector_size(16)));
    using Counts = std::int32_t __attribute__((vector_size(8)));
    using ShortCounts = std::int16_t __attribute__((vector_size(4)));
};
template <>
struct Registers<4> {
    using Doubles = double __attribute__((vector_size(32)));
    using Signed = std::int64_t __attribute__((vector_size(32)));
    using Bits = std::uint64_t __attribute__((vector_size(32)));
    using Counts = std::int32_t __attribute__((vector_size(16)));
    using ShortCounts = std::int16_t __attribute__((vector_size(8)));
};
template <>
struct Registers<8> {
    using Doubles = double __attribute__((vector_size(64)));
    using Signed = std::int64_t __attribute__((vector_size(64)));
    using Bits = std::uint64_t __attribute__((vector_size(64)));
    using Counts = std::int32_t __attribute__((vector_size(32)));
    using ShortCounts = std::int16_t __attribute__((vector_size(16)));
};

template <int N>
struct Mask {
    using Vector = typename Registers<N>::Signed;
    Vector m; // all bits of a lane or none

    friend Mask operator&(Mask a, Mask b) { return {a.m & b.m}; }
    friend Mask operator|(Mask a, Mask b) { return {a.m | b.m}; }
    friend Mask operator!(Mask a) { return {~a.m}; }
    Mask &operator&=(Mask b) { return *this = *this & b; }
    Mask &operator|=(Mask b) { return *this = *this | b; }
    bool operator[](int lane) const { return m[lane] != 0; }
};

template <int N>
struct Pack {
    using Vector = typename Registers<N>::Doubles;
    using Counts = typename Registers<N>::Counts; // as many integers
    using ShortCounts = typename Registers<N>::ShortCounts;
    Vector v;

    Pack() = default;
    Pack(double x) : v(x - Vector{}) {} // the same in all lanes, minus zero too
    explicit Pack(Vector x) : v(x) {}
    double operator[](int lane) const { return v[lane]; }

    friend Pack operator+(Pack a, Pack b) { return Pack(a.v + b.v); }
    friend Pack operator-(Pack a, Pack b) { return Pack(a.v - b.v); }
    friend Pack operator*(Pack a, Pack b) { return Pack(a.v * b.v); }
    friend Pack operator/(Pack a, Pack b) { return Pack(a.v / b.v); }
    friend Pack operator-(Pack a) { return Pack(-a.v); }
    Pack &operator+=(Pack b) { return *this = *this + b; }
    Pack &operator-=(Pack b) { return *this = *this - b; }
    Pack &operator*=(Pack b) { return *this = *this * b; }
    Pack &operator/=(Pack b) { return *this = *this / b; }
    friend Mask<N> operator<(Pack a, Pack b) { return {a.v < b.v}; }
    friend Mask<N> operator<=(Pack a, Pack b) { return {a.v <= b.v}; }
    friend Mask<N> operator>(Pack a, Pack b) { return {a.v > b.v}; }
    friend Mask<N> operator>=(Pack a, Pack b) { return {a.v >= b.v}; }
    friend Mask<N> operator==(Pack a, Pack b) { return {a.v == b.v}; }
    friend Mask<N> operator!=(Pack a, Pack b) { return {a.v != b.v}; }
};

// How many lanes the registers of this translation unit hold.
#if defined(__AVX512F__)
constexpr int kLanes = 8;
#elif defined(__AVX__)
constexpr int kLanes = 4;
#else
constexpr int kLanes = 2;
#endif
constexpr int kMostLanes = 8; // of any set: arrays for kernels are padded to a multiple
using Lanes = Pack<kLanes>;

template <class T>
constexpr int lanes_of = 1;
template <int N>
constexpr int lanes_of<Pack<N>> = N;

// ---- conditions ----

template <class T>
struct MaskOf {
    using Type = bool;
};
template <int N>
struct MaskOf<Pack<N>> {
    using Type = Mask<N>;
};
template <class T>
using mask_of = typename MaskOf<T>::Type;

inline bool any(bool m)
{
    return m;
}
template <int N>
bool any(Mask<N> m)
{
#if defined(__AVX512F__)
    if constexpr (N == 8)
        return _mm512_test_epi64_mask(reinterpret_cast<__m512i>(m.m), reinterpret_cast<__m512i>(m.m)) != 0;
#endif
#if defined(__AVX__)
    if constexpr (N == 4)
        return _mm256_movemask_pd(reinterpret_cast<__m256d>(m.m)) != 0;
#endif
#if defined(__SSE2__)
    if constexpr (N == 2)
        return _mm_movemask_pd(reinterpret_cast<__m128d>(m.m)) != 0;
#endif
    std::int64_t set = 0;
    for (int i = 0; i < N; ++i)
        set |= m.m[i];
    return set != 0;
}
template <class M>
bool all(M m)
{
    return !any(!m);
}

inline double select(bool m, double yes, double no)
{
    return m ? yes : no;
}
template <int N>
Pack<N> select(Mask<N> m, Pack<N> yes, Pack<N> no)
{
    return Pack<N>(m.m ? yes.v : no.v);
}
template <int N>
Pack<N> select(Mask<N> m, Pack<N> yes, double no)
{
    return select(m, yes, Pack<N>(no));
}
template <int N>
Pack<N> select(Mask<N> m, double yes, Pack<N> no)
{
    return select(m, Pack<N>(yes), no);
}
template <int N>
Pack<N> select(Mask<N> m, double yes, double no)
{
    return select(m, Pack<N>(yes), Pack<N>(no));
}

// ---- bits ----

template <class T>
struct BitsOf {
    using Type = std::uint64_t;
};
template <int N>
struct BitsOf<Pack<N>> {
    using Type = typename Registers<N>::Bits;
};
template <class T>
using bits_type = typename BitsOf<T>::Type;

template <class T>
bits_type<T> bits_of(T x)
{
    bits_type<T> bits;
    static_assert(sizeof bits == sizeof x);
    std::memcpy(&bits, &x, sizeof bits);
    return bits;
}
// To the bit, zeros and NaN too.
inline bool same_number(double a, double b)
{
    return bits_of(a) == bits_of(b);
}
template <class T>
T from_bits(bits_type<T> bits)
{
    T x;
    std::memcpy(&x, &bits, sizeof x);
    return x;
}

// ---- exact functions; those of double are the C library's ----

using ::copysign;
using ::fabs;
using ::floor;
using ::sqrt;
using ::trunc;

template <int N>
Pack<N> fabs(Pack<N> x)
{
    return from_bits<Pack<N>>(bits_of(x) & ~(std::uint64_t{1} << 63));
}
template <int N>
Pack<N> copysign(Pack<N> size, Pack<N> sign)
{
    constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
    return from_bits<Pack<N>>((bits_of(size) & ~kSign) | (bits_of(sign) & kSign));
}

template <int N>
Pack<N> sqrt(Pack<N> x)
{
#if defined(__AVX512F__)
    if constexpr (N == 8)
        return Pack<N>(
            reinterpret_cast<typename Pack<N>::Vector>(_mm512_maskz_sqrt_pd(0xff, reinterpret_cast<__m512d>(x.v))));
#endif
#if defined(__AVX__)
    if constexpr (N == 4)
        return Pack<N>(reinterpret_cast<typename Pack<N>::Vector>(_mm256_sqrt_pd(reinterpret_cast<__m256d>(x.v))));
#endif
#if defined(__SSE2__)
    if constexpr (N == 2)
        return Pack<N>(reinterpret_cast<typename Pack<N>::Vector>(_mm_sqrt_pd(reinterpret_cast<__m128d>(x.v))));
#endif
    for (int i = 0; i < N; ++i)
        x.v[i] = ::sqrt(x.v[i]);
    return x;
}

template <int N>
Pack<N> floor(Pack<N> x)
{
#if defined(__AVX512F__)
    if constexpr (N == 8)
        return Pack<N>(reinterpret_cast<typename Pack<N>::Vector>(_mm512_maskz_roundscale_pd(
            0xff, reinterpret_cast<__m512d>(x.v), _MM_FROUND_TO_NEG_INF | _MM_FROUND_NO_EXC)));
#endif
#if defined(__AVX__)
    if constexpr (N == 4)
        return Pack<N>(reinterpret_cast<typename Pack<N>::Vector>(_mm256_floor_pd(reinterpret_cast<__m256d>(x.v))));
#endif
    constexpr double kWhole = 0x1p52; // from here on every number is whole
    const Pack<N> nearest = copysign((fabs(x) + kWhole) - kWhole, x);
    const Pack<N> down = copysign(nearest - select(nearest > x, 1.0, Pack<N>(0.0)), x);
    return select(fabs(x) < kWhole, down, x);
}
template <int N>
Pack<N> trunc(Pack<N> x)
{
    return copysign(floor(fabs(x)), x);
}

// The second where they are equal or one is not a number.
template <class T>
T lesser(T a, T b)
{
    return select(a < b, a, b);
}
template <class T>
T greater(T a, T b)
{
    return select(a > b, a, b);
}

// ---- memory ----

template <class T>
T load(const double *from) // as many neighbours as T has lanes
{
    T x;
    std::memcpy(&x, from, sizeof x);
    return x;
}
// The same of integers.
template <class T>
T load(const std::int32_t *from)
{
#if defined(__SSE2__)
    if constexpr (lanes_of<T> == 2) // g++ 12 converts one after the other
        return T(reinterpret_cast<typename T::Vector>(
            _mm_cvtepi32_pd(_mm_loadl_epi64(reinterpret_cast<const __m128i *>(from)))));
#endif
    typename T::Counts counts;
    std::memcpy(&counts, from, sizeof counts);
    return T(__builtin_convertvector(counts, typename T::Vector));
}
template <class T>
T load(const std::int16_t *from)
{
    typename T::ShortCounts counts;
    std::memcpy(&counts, from, sizeof counts);
    return T(__builtin_convertvector(__builtin_convertvector(counts, typename T::Counts), typename T::Vector));
}
template <class T>
void store(T x, double *to)
{
    std::memcpy(to, &x, sizeof x);
}

inline double lane(double x, int)
{
    return x;
}
template <int N>
double lane(Pack<N> x, int i)
{
    return x.v[i];
}
inline bool lane(bool m, int)
{
    return m;
}
template <int N>
bool lane(Mask<N> m, int i)
{
    return m.m[i] != 0;
}
inline void set_lane(double &x, int, double value)
{
    x = value;
}
template <int N>
void set_lane(Pack<N> &x, int i, double value)
{
    x.v[i] = value;
}

// `otherwise`, but in the lanes of the mask f of their numbers: for rare cases, whatever they cost.
template <class T, class F, class... Arguments>
T in_lanes(mask_of<T> m, T otherwise, F f, Arguments... arguments)
{
    for (int i = 0; i < lanes_of<T>; ++i)
        if (lane(m, i))
            set_lane(otherwise, i, f(lane(arguments, i)...));
    return otherwise;
}

} // namespace KL_SET

#endif
