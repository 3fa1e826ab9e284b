// From elements in memory to packs and back, for kernels that judge each lane: what they do not answer for is left to
// the scalar call. Outputs may lie on inputs of the same shape: a pack of elements is read before it is written.
#ifndef KL_SRC_NUMBERS_STREAMS_H
#define KL_SRC_NUMBERS_STREAMS_H

#include "numbers/transposed.h"

#include <cstdint>

inline namespace KL_SET {

// A bit a lane.
template <int N>
std::uint64_t bits_of_lanes(Mask<N> m)
{
#if defined(__AVX512F__)
    if constexpr (N == 8)
        return _mm512_test_epi64_mask(reinterpret_cast<__m512i>(m.m), reinterpret_cast<__m512i>(m.m));
#endif
#if defined(__AVX__)
    if constexpr (N == 4)
        return static_cast<std::uint64_t>(_mm256_movemask_pd(reinterpret_cast<__m256d>(m.m)));
#endif
#if defined(__SSE2__)
    if constexpr (N == 2)
        return static_cast<std::uint64_t>(_mm_movemask_pd(reinterpret_cast<__m128d>(m.m)));
#endif
    std::uint64_t bits = 0;
    for (int i = 0; i < N; ++i)
        bits |= static_cast<std::uint64_t>(m.m[i] & 1) << i;
    return bits;
}

// Which of the elements first, first + 1, ... are answered for; the others are noted in `left`.
template <int N>
std::uint64_t accepted(Mask<N> good, long first, long count, std::uint64_t *left)
{
    constexpr std::uint64_t kAll = (std::uint64_t{1} << N) - 1;
    const std::uint64_t here = count - first >= N ? kAll : (std::uint64_t{1} << (count - first)) - 1;
    const std::uint64_t bits = bits_of_lanes(good) & here;
    *left |= (here & ~bits) << first;
    return bits;
}

template <int N, int M>
void store_accepted(const Pack<N> (&in)[M], std::uint64_t bits, double *to, long first)
{
    if (bits == (std::uint64_t{1} << N) - 1) {
        store_elements(in, to, first, first + N);
        return;
    }
    for (int k = 0; k < N; ++k)
        for (int j = 0; j < M && (bits >> k & 1) != 0; ++j)
            to[M * (first + k) + j] = lane(in[j], k);
}

// Are all components numbers, and smaller than `most` (1e150 at the largest)?
template <class T, int M>
mask_of<T> all_below(const T (&v)[M], double most)
{
    auto good = fabs(v[0]) < most;
    for (int j = 1; j < M; ++j)
        good &= fabs(v[j]) < most;
    return good;
}

} // namespace KL_SET

#endif
