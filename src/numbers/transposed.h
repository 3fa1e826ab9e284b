// Between elements of a few doubles, one after the other, and packs of which each holds one double of several elements:
// by shuffles of whole registers, a quarter of the instructions that lanes one by one take. They are
// put in line: as calls they hand packs and places over in memory.
#ifndef KL_SRC_NUMBERS_TRANSPOSED_H
#define KL_SRC_NUMBERS_TRANSPOSED_H

#include "numbers/pack.h"

inline namespace KL_SET {

// Lanes of a, then of b, by their numbers.
template <int... Lanes, class Vector>
auto shuffled(Vector a, Vector b)
{
#if defined(__clang__) || __GNUC__ >= 12
    return __builtin_shufflevector(a, b, Lanes...);
#else
    constexpr int n = sizeof(Vector) / sizeof(double);
    return typename Registers<sizeof...(Lanes)>::Doubles{(Lanes < n ? a : b)[Lanes % n]...};
#endif
}

// Two halves.
template <int N>
Pack<2 * N> joined(Pack<N> low, Pack<N> high)
{
    if constexpr (N == 2)
        return Pack<2 * N>(shuffled<0, 1, 2, 3>(low.v, high.v));
    else
        return Pack<2 * N>(shuffled<0, 1, 2, 3, 4, 5, 6, 7>(low.v, high.v));
}
template <int N, int M>
void part(const Pack<2 * N> (&in)[M], Pack<N> (&low)[M], Pack<N> (&high)[M])
{
    for (int j = 0; j < M; ++j) {
        low[j] = Pack<N>(shuffled<0, 1, 2, 3>(in[j].v, in[j].v));
        high[j] = Pack<N>(shuffled<4, 5, 6, 7>(in[j].v, in[j].v));
    }
}

// Rows become columns: of two or four.
template <int N>
[[gnu::always_inline]] inline void transpose(Pack<N> (&m)[N])
{
    if constexpr (N == 2) {
        const auto a = m[0].v, b = m[1].v;
        m[0].v = shuffled<0, 2>(a, b);
        m[1].v = shuffled<1, 3>(a, b);
    } else {
        const auto even01 = shuffled<0, 4, 2, 6>(m[0].v, m[1].v), odd01 = shuffled<1, 5, 3, 7>(m[0].v, m[1].v);
        const auto even23 = shuffled<0, 4, 2, 6>(m[2].v, m[3].v), odd23 = shuffled<1, 5, 3, 7>(m[2].v, m[3].v);
        m[0].v = shuffled<0, 1, 4, 5>(even01, even23);
        m[1].v = shuffled<0, 1, 4, 5>(odd01, odd23);
        m[2].v = shuffled<2, 3, 6, 7>(even01, even23);
        m[3].v = shuffled<2, 3, 6, 7>(odd01, odd23);
    }
}

// Of elements of three doubles, without gaps.
template <int N>
[[gnu::always_inline]] inline void load_threes(const double *from, Pack<N> (&out)[3])
{
    if constexpr (N == 8) {
        Pack<4> low[3], high[3];
        load_threes(from, low);
        load_threes(from + 12, high);
        for (int j = 0; j < 3; ++j)
            out[j] = joined(low[j], high[j]);
        return;
    }
    const auto a = load<Pack<N>>(from).v, b = load<Pack<N>>(from + N).v, c = load<Pack<N>>(from + 2 * N).v;
    if constexpr (N == 2) { // x y, z x, y z
        out[0].v = shuffled<0, 3>(a, b);
        out[1].v = shuffled<1, 2>(a, c);
        out[2].v = shuffled<0, 3>(b, c);
    } else if constexpr (N == 4) {
        const auto xy = shuffled<0, 1, 6, 7>(a, b); // of elements 0 and 2
        const auto zx = shuffled<2, 3, 4, 5>(a, c); // z of 0 and 2, x of 1 and 3
        const auto yz = shuffled<0, 1, 6, 7>(b, c); // of 1 and 3
        out[0].v = shuffled<0, 5, 2, 7>(xy, zx);
        out[1].v = shuffled<1, 4, 3, 6>(xy, yz);
        out[2].v = shuffled<0, 5, 2, 7>(zx, yz);
    }
}

template <int N>
[[gnu::always_inline]] inline void store_threes(const Pack<N> (&in)[3], double *to)
{
    if constexpr (N == 2) {
        store(Pack<2>(shuffled<0, 2>(in[0].v, in[1].v)), to);
        store(Pack<2>(shuffled<0, 3>(in[2].v, in[0].v)), to + 2);
        store(Pack<2>(shuffled<1, 3>(in[1].v, in[2].v)), to + 4);
    } else if constexpr (N == 4) {
        const auto xy = shuffled<0, 4, 2, 6>(in[0].v, in[1].v);
        const auto zx = shuffled<0, 5, 2, 7>(in[2].v, in[0].v);
        const auto yz = shuffled<1, 5, 3, 7>(in[1].v, in[2].v);
        store(Pack<N>(shuffled<0, 1, 4, 5>(xy, zx)), to);
        store(Pack<N>(shuffled<0, 1, 6, 7>(yz, xy)), to + 4);
        store(Pack<N>(shuffled<2, 3, 6, 7>(zx, yz)), to + 8);
    } else {
        Pack<4> low[3], high[3];
        part(in, low, high);
        store_threes(low, to);
        store_threes(high, to + 12);
    }
}

// From N places, M numbers each: no way through memory, where narrow writes would hold up wide reads.
template <class Number, int N, int M>
[[gnu::always_inline]] inline void gather(const Number *const (&from)[N], Pack<N> (&out)[M])
{
    int j = 0;
    if constexpr (N == 8) {
        const Number *const halves[2][4] = {{from[0], from[1], from[2], from[3]}, {from[4], from[5], from[6], from[7]}};
        Pack<4> low[M], high[M];
        gather(halves[0], low);
        gather(halves[1], high);
        for (; j < M; ++j)
            out[j] = joined(low[j], high[j]);
    } else {
        for (; j + N <= M; j += N) {
            Pack<N> square[N];
            for (int k = 0; k < N; ++k)
                square[k] = load<Pack<N>>(from[k] + j);
            transpose(square);
            for (int k = 0; k < N; ++k)
                out[j + k] = square[k];
        }
        if constexpr (N == 4 && M % 4 >= 2) {
            using Two = Pack<2>;
            const auto even = joined(load<Two>(from[0] + j), load<Two>(from[2] + j)).v;
            const auto odd = joined(load<Two>(from[1] + j), load<Two>(from[3] + j)).v;
            out[j].v = shuffled<0, 4, 2, 6>(even, odd);
            out[j + 1].v = shuffled<1, 5, 3, 7>(even, odd);
            j += 2;
        }
    }
    for (; j < M; ++j) {
        typename Pack<N>::Vector v = {};
        for (int k = 0; k < N; ++k)
            v[k] = static_cast<double>(from[k][j]);
        out[j] = Pack<N>(v);
    }
}

template <class Number, int M>
void gather(const Number *const (&from)[1], double (&out)[M])
{
    for (int j = 0; j < M; ++j)
        out[j] = from[0][j];
}

// To N places.
template <int N, int M>
[[gnu::always_inline]] inline void scatter(const Pack<N> (&in)[M], double *const (&to)[N])
{
    int j = 0;
    if constexpr (N == 8) {
        double *const halves[2][4] = {{to[0], to[1], to[2], to[3]}, {to[4], to[5], to[6], to[7]}};
        Pack<4> low[M], high[M];
        part(in, low, high);
        scatter(low, halves[0]);
        scatter(high, halves[1]);
        j = M;
    } else {
        for (; j + N <= M; j += N) {
            Pack<N> square[N];
            for (int k = 0; k < N; ++k)
                square[k] = in[j + k];
            transpose(square);
            for (int k = 0; k < N; ++k)
                store(square[k], to[k] + j);
        }
    }
    for (; j < M; ++j)
        for (int k = 0; k < N; ++k)
            to[k][j] = in[j].v[k];
}

// Elements first, first + 1, ...; beyond the count its last one.
template <int N, int M>
void load_elements(const double *from, long first, long count, Pack<N> (&out)[M])
{
    if constexpr (M == 3)
        if (first + N <= count)
            return load_threes(from + M * first, out);
    const double *element[N];
    for (int k = 0; k < N; ++k)
        element[k] = from + M * (first + k < count ? first + k : count - 1);
    gather(element, out);
}

template <int N, int M>
void store_elements(const Pack<N> (&in)[M], double *to, long first, long count)
{
    if (first + N <= count) {
        if constexpr (M == 3)
            return store_threes(in, to + M * first);
        double *element[N];
        for (int k = 0; k < N; ++k)
            element[k] = to + M * (first + k);
        scatter(in, element);
        return;
    }
    for (int k = 0; first + k < count; ++k)
        for (int j = 0; j < M; ++j)
            to[M * (first + k) + j] = lane(in[j], k);
}

// The same of elements at places: place[first], place[first + 1], ...
template <int N, int M>
void load_places(const double (*from)[M], const long *place, long first, long count, Pack<N> (&out)[M])
{
    const double *element[N];
    for (int k = 0; k < N; ++k)
        element[k] = from[place[first + k < count ? first + k : count - 1]];
    gather(element, out);
}

template <int N, int M>
void store_places(const Pack<N> (&in)[M], double (*to)[M], const long *place, long first, long count)
{
    for (int k = 0; k < N && first + k < count; ++k)
        for (int j = 0; j < M; ++j)
            to[place[first + k]][j] = lane(in[j], k);
}

} // namespace KL_SET

#endif
