// Sums over degree of the geoid expansion, for all orders of one parallel.
//
// With fully normalised Legendre functions P(n,m) of the colatitude theta the undulation is, in centimetres,
//     sum over n, m of P(n,m) [ (w(n) HC + CC) cos m lambda + (w(n) HS + CS) sin m lambda ].
// A kernel gives the sums over n for each m. It goes by blocks of eight orders, the degrees running inside, so that
// recursion and sums stay in registers. The functions are scaled, P(n,m) = factor(n,m) p(n,m), which leaves
//     p(m,m) = sin^m theta,
//     p(n,m) = 2 cos theta p(n-1,m) - g p(n-2,m),   g = 4 ((n-1)^2 - m^2) / (4 (n-1)^2 - 1);
// the factors are in the packed coefficients.
//
// Every order is a lane of its own and nothing is contracted: all kernels give the same bits.
#ifndef KL_SRC_EARTH_GEOID_KERNEL_H
#define KL_SRC_EARTH_GEOID_KERNEL_H

#include "earth/egm96_layout.h"

#include <cstring>

// Sectoral functions below this are worth less than 1e-100 m: left out before they get subnormal, which would be slow.
constexpr double kNegligibleSectoral = 1e-130;

struct GeoidSums {
    alignas(64) double cosine[kEgm96Blocks * kEgm96Lanes];
    alignas(64) double sine[kEgm96Blocks * kEgm96Lanes];
    int n_blocks = 0; // those that count: beyond, the sums are zero and not written
};

// `packed` as in egm96_layout.h; `weight` [max_degree + 1], those of degrees 0 and 1 unused (their HC, HS are zero).
using GeoidKernel = void (*)(const double *packed, int max_degree, double cos_theta, double sin_theta,
                             const double *weight, GeoidSums *sums);

void geoid_sums_baseline(const double *packed, int max_degree, double cos_theta, double sin_theta, const double *weight,
                         GeoidSums *sums);
#ifdef KL_GEOID_X86_KERNELS
void geoid_sums_avx2(const double *packed, int max_degree, double cos_theta, double sin_theta, const double *weight,
                     GeoidSums *sums);
void geoid_sums_avx512(const double *packed, int max_degree, double cos_theta, double sin_theta, const double *weight,
                       GeoidSums *sums);
#endif

// Kernel by number: 0 the baseline of the build, 1 AVX2, 2 AVX-512; null where the machine or the build has none.
GeoidKernel geoid_kernel(long number);

// That of the instruction set in use (numbers/kernels.h), or the widest one below it that the build has.
GeoidKernel widest_geoid_kernel();

#ifdef KL_GEOID_VECTOR_BYTES // the translation units of the kernels: one vector width each
// Everything below has internal linkage: compiled for wider machines, it must not serve another translation unit.
namespace {

using Vector = double __attribute__((vector_size(KL_GEOID_VECTOR_BYTES)));
constexpr long kWidth = KL_GEOID_VECTOR_BYTES / sizeof(double);
constexpr long kVectors = kEgm96Lanes / kWidth;

// A factor of all lanes. Narrow vectors are faster with it spread out in memory, wide ones spread it as they load.
#if KL_GEOID_VECTOR_BYTES == 16
using Spread = Vector;
#else
using Spread = double;
#endif

struct Row {
    Spread n1_squared; // 4 (n-1)^2
    Spread inverse;    // 1 / (4 (n-1)^2 - 1)
    Spread weight;
};

struct Block {
    Vector even[kVectors], odd[kVectors]; // the two latest degrees of p
    Vector m_squared[kVectors];           // 4 m^2
    Vector cosine[kVectors], sine[kVectors];
};

// One degree: `older` becomes p of this degree, `newer` is p of the one before.
__attribute__((always_inline)) inline void add_degree(Block &block, Vector *older, const Vector *newer, const Row &row,
                                                      Spread two_cos, const Vector *coefficients)
{
#pragma GCC unroll 4
    for (int v = 0; v < kVectors; ++v) {
        const Vector g = (row.n1_squared - block.m_squared[v]) * row.inverse;
        const Vector p = two_cos * newer[v] - g * older[v];
        older[v] = p;
        block.cosine[v] += p * (coefficients[v] * row.weight + coefficients[2 * kVectors + v]);
        block.sine[v] += p * (coefficients[kVectors + v] * row.weight + coefficients[3 * kVectors + v]);
    }
}

// The same for a degree where an order of the block begins, `start` in its lane and zero in the others.
inline void add_first_degree(Block &block, Vector *older, const Vector *newer, const Row &row, Spread two_cos,
                             const Vector *coefficients, const double *start)
{
    for (int v = 0; v < kVectors; ++v) {
        Vector begin;
        std::memcpy(&begin, start + v * kWidth, sizeof begin);
        const Vector g = (row.n1_squared - block.m_squared[v]) * row.inverse;
        const Vector p = two_cos * newer[v] - g * older[v] + begin;
        older[v] = p;
        block.cosine[v] += p * (coefficients[v] * row.weight + coefficients[2 * kVectors + v]);
        block.sine[v] += p * (coefficients[kVectors + v] * row.weight + coefficients[3 * kVectors + v]);
    }
}

inline void sum_blocks(const double *packed, int max_degree, double cos_theta, double sin_theta, const double *weight,
                       GeoidSums *sums)
{
    Row rows[kEgm96Degree + 1];
    for (int n = 0; n <= max_degree; ++n) {
        const double n1_squared = 4.0 * (n - 1) * (n - 1);
        rows[n].n1_squared = Spread{} + n1_squared;
        rows[n].inverse = Spread{} + 1.0 / (n1_squared - 1.0);
        rows[n].weight = Spread{} + weight[n];
    }
    const Spread two_cos = Spread{} + 2.0 * cos_theta;

    double sectoral = 1.0; // p of the block's first order at its own degree
    int index = 0;
    for (; index < kEgm96Blocks && index * kEgm96Lanes <= max_degree; ++index) {
        if (sectoral < kNegligibleSectoral)
            break;
        const int first = index * kEgm96Lanes;
        Block block = {};
        double lanes[kEgm96Lanes];
        for (int lane = 0; lane < kEgm96Lanes; ++lane)
            lanes[lane] = 4.0 * (first + lane) * (first + lane);
        std::memcpy(block.m_squared, lanes, sizeof lanes);

        // The blocks of the packed copy are aligned: 64 bytes.
        const auto *coefficients = reinterpret_cast<const Vector *>(packed + egm96_block_start(index));
        int n = first;
        for (int lane = 0; lane < kEgm96Lanes; ++lane) {
            double start[kEgm96Lanes] = {};
            start[lane] = sectoral;
            sectoral *= sin_theta;
            if (n > max_degree)
                continue;
            if (lane % 2 == 0)
                add_first_degree(block, block.even, block.odd, rows[n], two_cos, coefficients, start);
            else
                add_first_degree(block, block.odd, block.even, rows[n], two_cos, coefficients, start);
            ++n;
            coefficients += 4 * kVectors;
        }
        for (; n < max_degree; n += 2, coefficients += 8 * kVectors) {
            add_degree(block, block.even, block.odd, rows[n], two_cos, coefficients);
            add_degree(block, block.odd, block.even, rows[n + 1], two_cos, coefficients + 4 * kVectors);
        }
        if (n == max_degree)
            add_degree(block, block.even, block.odd, rows[n], two_cos, coefficients);

        std::memcpy(sums->cosine + first, block.cosine, sizeof block.cosine);
        std::memcpy(sums->sine + first, block.sine, sizeof block.sine);
    }
    sums->n_blocks = index;
}

} // namespace
#endif

#endif
