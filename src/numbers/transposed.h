// Between elements of a few doubles, one after the other, and packs of which each holds one double of several elements.
#ifndef KL_SRC_NUMBERS_TRANSPOSED_H
#define KL_SRC_NUMBERS_TRANSPOSED_H

#include "numbers/pack.h"

inline namespace KL_SET {

// Elements first, first + 1, ...; beyond the count its last one.
template <int N, int M>
void load_elements(const double *from, long first, long count, Pack<N> (&out)[M])
{
    double rows[M][N];
    for (int k = 0; k < N; ++k) {
        const double *element = from + M * (first + k < count ? first + k : count - 1);
        for (int j = 0; j < M; ++j)
            rows[j][k] = element[j];
    }
    for (int j = 0; j < M; ++j)
        out[j] = load<Pack<N>>(rows[j]);
}

template <int N, int M>
void store_elements(const Pack<N> (&in)[M], double *to, long first, long count)
{
    double rows[M][N];
    for (int j = 0; j < M; ++j)
        store(in[j], rows[j]);
    for (int k = 0; k < N && first + k < count; ++k)
        for (int j = 0; j < M; ++j)
            to[M * (first + k) + j] = rows[j][k];
}

// The same of elements at places: place[first], place[first + 1], ...
template <int N, int M>
void load_places(const double (*from)[M], const long *place, long first, long count, Pack<N> (&out)[M])
{
    double rows[M][N];
    for (int k = 0; k < N; ++k) {
        const double *element = from[place[first + k < count ? first + k : count - 1]];
        for (int j = 0; j < M; ++j)
            rows[j][k] = element[j];
    }
    for (int j = 0; j < M; ++j)
        out[j] = load<Pack<N>>(rows[j]);
}

template <int N, int M>
void store_places(const Pack<N> (&in)[M], double (*to)[M], const long *place, long first, long count)
{
    double rows[M][N];
    for (int j = 0; j < M; ++j)
        store(in[j], rows[j]);
    for (int k = 0; k < N && first + k < count; ++k)
        for (int j = 0; j < M; ++j)
            to[place[first + k]][j] = rows[j][k];
}

} // namespace KL_SET

#endif
