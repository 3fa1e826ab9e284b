#include "earth/geoid_points.h"

#include "earth/geoid_kernel.h"
#include "numbers/pack.h"

#include <type_traits>
#include <utility>

namespace KL_KERNELS {

namespace {

// A chunk of degrees is gone through for all points and orders of a block before the next one: its coefficients stay in
// the first-level cache. The first chunk holds degree 0 as well, so that from an even order on the degrees go by pairs.
constexpr int kChunk = 32;
constexpr int kChunks = kEgm96Degree / kChunk + 1;

using Row = double[kGeoidPoints];

// What goes along the degrees, by order of the block.
struct Orders {
    alignas(64) Row newer[kEgm96Lanes], older[kEgm96Lanes];
    alignas(64) Row cosine[kEgm96Lanes], sine[kEgm96Lanes];
    alignas(64) Row start[kEgm96Lanes]; // the sectoral functions
};

// Plain vectors: compilers keep these in registers where they do not keep records of one.
using Vector = Lanes::Vector;

inline Vector vector_at(const double *from)
{
    return load<Lanes>(from).v;
}
inline Vector all_lanes(double x)
{
    return Lanes(x).v;
}

// Packs side by side. A recursion waits for itself, six cycles a degree: three keep the units busy, and what they carry
// fills sixteen registers.
template <int P>
struct Packs {
    Vector at[P];
};
template <int... K>
struct Places {
};
template <int P>
using PlacesOf = std::conditional_t<P == 2, Places<0, 1>, Places<0, 1, 2>>;

template <int... K>
Packs<sizeof...(K)> load_packs(Places<K...>, const double *from)
{
    return {{vector_at(from + K * kLanes)...}};
}
template <int... K>
void store_packs(Places<K...>, const Packs<sizeof...(K)> &x, double *to)
{
    (store(Lanes(x.at[K]), to + K * kLanes), ...);
}

// Loads stay where they are written: the compiler would bring them forward and run out of registers.
#define KEEP_ORDER() __asm__ volatile("" ::: "memory")

// Adds the terms of one degree, whose functions are `p`.
template <int... K, class P>
[[gnu::always_inline]] inline void add_terms(Places<K...>, const double *row, const double *weight, const P &p,
                                             P &cosine, P &sine)
{
    const Vector hc = all_lanes(row[0]), cc = all_lanes(row[2 * kEgm96Lanes]);
    ((cosine.at[K] += p.at[K] * (hc * vector_at(weight + K * kLanes) + cc)), ...);
    KEEP_ORDER();
    const Vector hs = all_lanes(row[kEgm96Lanes]), cs = all_lanes(row[3 * kEgm96Lanes]);
    ((sine.at[K] += p.at[K] * (hs * vector_at(weight + K * kLanes) + cs)), ...);
    KEEP_ORDER();
}

// One degree of one order: `older` becomes the function of this degree.
template <int... K, class P>
[[gnu::always_inline]] inline void add_degree(Places<K...> places, const double *row, double g, const double *weight,
                                              const double *two_cos, const P &newer, P &older, P &cosine, P &sine)
{
    const Vector factor = all_lanes(g);
    ((older.at[K] = vector_at(two_cos + K * kLanes) * newer.at[K] - factor * older.at[K]), ...);
    KEEP_ORDER();
    add_terms(places, row, weight, older, cosine, sine);
}

// The degrees of one order in a chunk, for P packs of points.
template <int P, bool Starts, bool Odd>
void go_along(const double *row, const double *g, const double *weight, int n_pairs, const double *two_cos, int lane,
              long at, Orders *orders)
{
    constexpr PlacesOf<P> places;
    Packs<P> newer, older, cosine, sine;
    if constexpr (Starts) {
        newer = load_packs(places, orders->start[lane] + at);
        older = cosine = sine = Packs<P>();
        add_terms(places, row, weight, newer, cosine, sine);
        row += kEgm96RowLength;
        weight += kGeoidPoints;
        ++g;
    } else {
        newer = load_packs(places, orders->newer[lane] + at);
        older = load_packs(places, orders->older[lane] + at);
        cosine = load_packs(places, orders->cosine[lane] + at);
        sine = load_packs(places, orders->sine[lane] + at);
    }
    if constexpr (Odd) {
        add_degree(places, row, *g, weight, two_cos, newer, older, cosine, sine);
        std::swap(newer, older);
        row += kEgm96RowLength;
        weight += kGeoidPoints;
        ++g;
    }
    for (int i = 0; i < n_pairs; ++i) {
        add_degree(places, row, g[0], weight, two_cos, newer, older, cosine, sine);
        add_degree(places, row + kEgm96RowLength, g[1], weight + kGeoidPoints, two_cos, older, newer, cosine, sine);
        row += 2 * kEgm96RowLength;
        weight += 2 * kGeoidPoints;
        g += 2;
    }
    store_packs(places, newer, orders->newer[lane] + at);
    store_packs(places, older, orders->older[lane] + at);
    store_packs(places, cosine, orders->cosine[lane] + at);
    store_packs(places, sine, orders->sine[lane] + at);
}

template <int P>
void go_along(bool starts, int n_degrees, const double *row, const double *g, const double *weight,
              const double *two_cos, int lane, long at, Orders *orders)
{
    const int behind = n_degrees - (starts ? 1 : 0);
    const bool odd = behind % 2 != 0;
    const auto go = starts ? (odd ? go_along<P, true, true> : go_along<P, true, false>)
                           : (odd ? go_along<P, false, true> : go_along<P, false, false>);
    go(row, g, weight + at, behind / 2, two_cos + at, lane, at, orders);
}

constexpr int first_degree_of(int chunk)
{
    return chunk == 0 ? 0 : chunk * kChunk + 1;
}

// The weights of a chunk, of all points, from those of its first degree; several packs at once, which do not wait for
// one another.
void weights_of_chunk(int from, const GeoidPoints &points, long count, const Row &first, Row *weights)
{
    constexpr int kPacks = 2 * kMostLanes / kLanes;
    for (long i = 0; i < count; i += kPacks * kLanes) {
        Lanes ratio[kPacks], w[kPacks];
        for (int j = 0; j < kPacks; ++j) {
            ratio[j] = load<Lanes>(points.ratio + i + j * kLanes);
            w[j] = load<Lanes>(first + i + j * kLanes);
        }
        for (int k = 0; k <= kChunk - (from > 0 ? 1 : 0); ++k)
            for (int j = 0; j < kPacks; ++j) {
                if (k > 0 && from + k >= 2)
                    w[j] *= ratio[j];
                store(from + k < 2 ? Lanes(0.0) : w[j], weights[k] + i + j * kLanes);
            }
    }
}

// The weight of the first degree of each chunk; that of the first chunk is of degree 1.
void weights_of_chunks(const GeoidPoints &points, int degree, long count, Row *chunk_weights)
{
    for (long i = 0; i < count; i += kLanes) {
        const Lanes ratio = load<Lanes>(points.ratio + i);
        Lanes w = load<Lanes>(points.weight + i);
        store(w, chunk_weights[0] + i);
        for (int n = 2; n <= degree; ++n) {
            w *= ratio;
            if (n % kChunk == 1)
                store(w, chunk_weights[n / kChunk] + i);
        }
    }
}

// What goes from block to block.
struct Blocks {
    alignas(64) Row c[kEgm96Lanes], s[kEgm96Lanes]; // cosines and sines of the eight orders of a block
    alignas(64) Row total[kEgm96Lanes];
    alignas(64) Row sectoral;
};

void start_blocks(const GeoidPoints &points, long count, Blocks *blocks)
{
    for (long i = 0; i < count; i += kLanes) {
        const Lanes c1 = load<Lanes>(points.c1 + i), s1 = load<Lanes>(points.s1 + i);
        Lanes ci = 1.0, si = 0.0;
        for (int lane = 0; lane < kEgm96Lanes; ++lane) {
            store(ci, blocks->c[lane] + i);
            store(si, blocks->s[lane] + i);
            store(Lanes(0.0), blocks->total[lane] + i);
            const Lanes next = ci * c1 - si * s1;
            si = si * c1 + ci * s1;
            ci = next;
        }
        store(Lanes(1.0), blocks->sectoral + i);
    }
}

// The sectoral functions of a block's orders. False: they have become negligible for all points.
bool start_orders(const GeoidPoints &points, long count, double *sectoral, Orders *orders)
{
    bool none = true;
    for (long i = 0; i < count; i += kLanes) {
        Lanes p = load<Lanes>(sectoral + i);
        const Lanes sin_theta = load<Lanes>(points.sin_theta + i);
        const auto small = p < kNegligibleSectoral;
        none &= all(small);
        p = select(small, 0.0, p);
        for (int lane = 0; lane < kEgm96Lanes; ++lane) {
            store(p, orders->start[lane] + i);
            p *= sin_theta;
        }
        store(p, sectoral + i);
    }
    return !none;
}

// By degree n: 4 (n-1)^2, and 1 / (4 (n-1)^2 - 1).
struct Recursion {
    double n1_squared[kEgm96Degree + 1], inverse[kEgm96Degree + 1];
};

void set_recursion(int degree, Recursion *out)
{
    for (int n = 0; n <= degree; ++n) {
        out->n1_squared[n] = 4.0 * (n - 1) * (n - 1);
        out->inverse[n] = 1.0 / (out->n1_squared[n] - 1.0);
    }
}

// The degrees from `from` up to `end` of the eight orders from `first` on. `rows` begin with degree `first`.
void go_along_chunk(const double *rows, int first, int from, int end, const Recursion &recursion, const Row *weights,
                    const double *two_cos, long count, Orders *orders)
{
    for (int lane = 0; lane < kEgm96Lanes && first + lane < end; ++lane) {
        const int m = first + lane;
        const int begin = m > from ? m : from;
        // The rows behind this chunk's come nearer while it is worked on, an eighth with each order; not into the
        // first-level cache, which is full.
        const double *behind = rows + (end - first) * kEgm96RowLength + lane * (kChunk / 8 * kEgm96RowLength);
        for (int k = 0; k < kChunk / 8 * kEgm96RowLength; k += 8)
            __builtin_prefetch(behind + k, 0, 2);
        double g[kChunk + 1];
        for (int n = begin; n < end; ++n)
            g[n - begin] = (recursion.n1_squared[n] - 4.0 * m * m) * recursion.inverse[n];
        const double *row = rows + (begin - first) * kEgm96RowLength + lane;
        const double *weight = weights[begin - from];
        for (long i = 0; i < count;) {
            const long packs = (count - i) / kLanes;
            if (packs == 2 || packs == 4) {
                go_along<2>(begin == m, end - begin, row, g, weight, two_cos, lane, i, orders);
                i += 2 * kLanes;
            } else {
                go_along<3>(begin == m, end - begin, row, g, weight, two_cos, lane, i, orders);
                i += 3 * kLanes;
            }
        }
    }
}

// Adds what the first `n_orders` of a block come to; cosines and sines go on by eight orders.
void finish_block(const GeoidPoints &points, long count, int n_orders, const Orders &orders, Blocks *blocks)
{
    for (long i = 0; i < count; i += kLanes) {
        const Lanes c8 = load<Lanes>(points.c8 + i), s8 = load<Lanes>(points.s8 + i);
        for (int lane = 0; lane < n_orders; ++lane) {
            const Lanes ci = load<Lanes>(blocks->c[lane] + i), si = load<Lanes>(blocks->s[lane] + i);
            const Lanes sum = load<Lanes>(blocks->total[lane] + i);
            store(sum + (load<Lanes>(orders.cosine[lane] + i) * ci + load<Lanes>(orders.sine[lane] + i) * si),
                  blocks->total[lane] + i);
            store(ci * c8 - si * s8, blocks->c[lane] + i);
            store(si * c8 + ci * s8, blocks->s[lane] + i);
        }
    }
}

} // namespace

void geoid_points(const double *packed, int degree, GeoidPoints *points, long count)
{
    alignas(64) Row chunk_weights[kChunks];
    alignas(64) Row weights[kChunk + 1];
    alignas(64) Row two_cos;
    Recursion recursion;
    Blocks blocks;
    Orders orders;
    weights_of_chunks(*points, degree, count, chunk_weights);
    set_recursion(degree, &recursion);
    for (long i = 0; i < count; i += kLanes)
        store(2.0 * load<Lanes>(points->cos_theta + i), two_cos + i);
    start_blocks(*points, count, &blocks);
    for (int block = 0; block < kEgm96Blocks && block * kEgm96Lanes <= degree; ++block) {
        if (!start_orders(*points, count, blocks.sectoral, &orders))
            break;
        const int first = block * kEgm96Lanes;
        const double *rows = packed + egm96_block_start(block); // of degree `first`
        for (int chunk = first > 0 ? (first - 1) / kChunk : 0; chunk < kChunks && first_degree_of(chunk) <= degree;
             ++chunk) {
            const int from = first_degree_of(chunk);
            const int end = first_degree_of(chunk + 1) <= degree ? first_degree_of(chunk + 1) : degree + 1;
            weights_of_chunk(from, *points, count, chunk_weights[chunk], weights);
            go_along_chunk(rows, first, from, end, recursion, weights, two_cos, count, &orders);
        }
        const int n_orders = degree - first < kEgm96Lanes ? degree - first + 1 : kEgm96Lanes;
        finish_block(*points, count, n_orders, orders, &blocks);
    }
    for (long i = 0; i < count; i += kLanes) {
        Lanes t[kEgm96Lanes];
        for (int lane = 0; lane < kEgm96Lanes; ++lane)
            t[lane] = load<Lanes>(blocks.total[lane] + i);
        store(((t[0] + t[1]) + (t[2] + t[3])) + ((t[4] + t[5]) + (t[6] + t[7])), points->sum + i);
    }
}

} // namespace KL_KERNELS
