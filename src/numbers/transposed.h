// Between elements of a few doubles, one after the other, and packs of which each holds one double of several elements.
#ifndef KL_SRC_NUMBERS_TRANSPOSED_H
#define KL_SRC_NUMBERS_TRANSPOSED_H

#include "numbers/pack.h"

inline namespace KL_SET {

// From N places, M doubles each: no way through memory, where narrow writes would hold up wide reads.
template <int N, int M>
void gather(const double *const (&from)[N], Pack<N> (&out)[M])
{
    for (int j = 0; j < M; ++j) {
        typename Pack<N>::Vector v = {};
        for (int k = 0; k < N; ++k)
            v[k] = from[k][j];
        out[j] = Pack<N>(v);
    }
}

// Elements first, first + 1, ...; beyond the count its last one.
template <int N, int M>
void load_elements(const double *from, long first, long count, Pack<N> (&out)[M])
{
    const double *element[N];
    for (int k = 0; k < N; ++k)
        element[k] = from + M * (first + k < count ? first + k : count - 1);
    gather(element, out);
}

template <int N, int M>
void store_elements(const Pack<N> (&in)[M], double *to, long first, long count)
{
    if (first + N <= count) {
        for (int k = 0; k < N; ++k)
            for (int j = 0; j < M; ++j)
                to[M * (first + k) + j] = in[j].v[k];
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
    if (first + N <= count) {
        for (int k = 0; k < N; ++k)
            for (int j = 0; j < M; ++j)
                to[place[first + k]][j] = in[j].v[k];
        return;
    }
    for (int k = 0; first + k < count; ++k)
        for (int j = 0; j < M; ++j)
            to[place[first + k]][j] = lane(in[j], k);
}

} // namespace KL_SET

#endif
