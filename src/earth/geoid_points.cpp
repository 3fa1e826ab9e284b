#include "earth/geoid_points.h"

#include "earth/egm96_layout.h"
#include "numbers/pack.h"

namespace KL_KERNELS {

namespace {

// As in geoid_kernel.h: worth less than 1e-100 m.
constexpr double kNegligibleSectoral = 1e-130;

// Degrees that are gone through for all points and orders of a block before the next ones: they stay in the first-level
// cache.
constexpr int kChunk = 32;
constexpr int kChunks = kEgm96Degree / kChunk + 1;
constexpr int kGroup = 2 * kLanes; // two packs at once: the recursion waits for itself

using Row = double[kGeoidPoints];

// What goes along the degrees, by order of the block.
struct Orders {
    alignas(64) Row newer[kEgm96Lanes], older[kEgm96Lanes];
    alignas(64) Row cosine[kEgm96Lanes], sine[kEgm96Lanes];
    alignas(64) Row start[kEgm96Lanes]; // the sectoral functions
};

struct Pair {
    Lanes a, b;
};

Pair load_pair(const double *from)
{
    return {load<Lanes>(from), load<Lanes>(from + kLanes)};
}
void store_pair(const Pair &x, double *to)
{
    store(x.a, to);
    store(x.b, to + kLanes);
}

// Loads stay where they are written: the compiler would bring them forward and run out of registers, and what went to
// memory is what the recursion waits for.
#define KEEP_ORDER() __asm__ volatile("" ::: "memory")

// One degree of one order: `older` becomes the function of this degree.
__attribute__((always_inline)) inline void add_degree(const double *row, double g, const double *weight,
                                                      const Pair &two_cos, const Pair &newer, Pair *older, Pair *cosine,
                                                      Pair *sine)
{
    const Lanes factor = g;
    older->a = two_cos.a * newer.a - factor * older->a;
    older->b = two_cos.b * newer.b - factor * older->b;
    KEEP_ORDER();
    const Lanes hc = row[0], cc = row[2 * kEgm96Lanes];
    cosine->a += older->a * (hc * load<Lanes>(weight) + cc);
    cosine->b += older->b * (hc * load<Lanes>(weight + kLanes) + cc);
    KEEP_ORDER();
    const Lanes hs = row[kEgm96Lanes], cs = row[3 * kEgm96Lanes];
    sine->a += older->a * (hs * load<Lanes>(weight) + cs);
    sine->b += older->b * (hs * load<Lanes>(weight + kLanes) + cs);
    KEEP_ORDER();
}

// The degrees from `n` up to `end` of order `m`, for a group of points. `rows` begins with degree n.
void go_along(const double *rows, const double *g, const Row *weights, int m, int n, int end, const double *cos_theta,
              long at, int lane, Orders *orders)
{
    const Pair cosine_of = load_pair(cos_theta + at);
    const Pair two_cos = {2.0 * cosine_of.a, 2.0 * cosine_of.b};
    Pair newer = load_pair(orders->newer[lane] + at);
    Pair older = load_pair(orders->older[lane] + at);
    Pair cosine = load_pair(orders->cosine[lane] + at);
    Pair sine = load_pair(orders->sine[lane] + at);
    if (n == m) {
        const Pair start = load_pair(orders->start[lane] + at);
        const Pair w = load_pair(weights[0] + at);
        const Lanes hc = rows[0], hs = rows[kEgm96Lanes], cc = rows[2 * kEgm96Lanes], cs = rows[3 * kEgm96Lanes];
        newer = start;
        cosine.a += start.a * (hc * w.a + cc);
        cosine.b += start.b * (hc * w.b + cc);
        sine.a += start.a * (hs * w.a + cs);
        sine.b += start.b * (hs * w.b + cs);
        ++n;
        rows += kEgm96RowLength;
        ++g;
        ++weights;
    }
    for (; n + 1 < end; n += 2, rows += 2 * kEgm96RowLength, g += 2, weights += 2) {
        add_degree(rows, g[0], weights[0] + at, two_cos, newer, &older, &cosine, &sine);
        add_degree(rows + kEgm96RowLength, g[1], weights[1] + at, two_cos, older, &newer, &cosine, &sine);
    }
    if (n < end) {
        add_degree(rows, g[0], weights[0] + at, two_cos, newer, &older, &cosine, &sine);
        const Pair keep = newer;
        newer = older;
        older = keep;
    }
    store_pair(newer, orders->newer[lane] + at);
    store_pair(older, orders->older[lane] + at);
    store_pair(cosine, orders->cosine[lane] + at);
    store_pair(sine, orders->sine[lane] + at);
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
        for (int k = 0; k < kChunk; ++k)
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
            if (n % kChunk == 0)
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

// The sectoral functions of a block's orders, and sums of nothing. False: they have become negligible for all points.
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
            Row *const along[4] = {orders->newer, orders->older, orders->cosine, orders->sine};
            for (Row *row : along)
                store(Lanes(0.0), row[lane] + i);
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
                    const double *cos_theta, long count, Orders *orders)
{
    for (int lane = 0; lane < kEgm96Lanes && first + lane < end; ++lane) {
        const int m = first + lane;
        const int begin = m > from ? m : from;
        // The rows behind this chunk's come while it is worked on, an eighth with each order.
        const double *behind = rows + (end - first) * kEgm96RowLength + lane * (kChunk / 8 * kEgm96RowLength);
        for (int k = 0; k < kChunk / 8 * kEgm96RowLength; k += 8)
            __builtin_prefetch(behind + k);
        double g[kChunk];
        for (int n = begin; n < end; ++n)
            g[n - begin] = (recursion.n1_squared[n] - 4.0 * m * m) * recursion.inverse[n];
        for (long i = 0; i < count; i += kGroup)
            go_along(rows + (begin - first) * kEgm96RowLength + lane, g, weights + (begin - from), m, begin, end,
                     cos_theta, i, lane, orders);
    }
}

// Adds what the orders of a block come to; cosines and sines go on by eight orders.
void finish_block(const GeoidPoints &points, long count, const Orders &orders, Blocks *blocks)
{
    for (long i = 0; i < count; i += kLanes) {
        const Lanes c8 = load<Lanes>(points.c8 + i), s8 = load<Lanes>(points.s8 + i);
        for (int lane = 0; lane < kEgm96Lanes; ++lane) {
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
    alignas(64) Row weights[kChunk];
    Recursion recursion;
    Blocks blocks;
    Orders orders;
    weights_of_chunks(*points, degree, count, chunk_weights);
    set_recursion(degree, &recursion);
    start_blocks(*points, count, &blocks);
    for (int block = 0; block < kEgm96Blocks && block * kEgm96Lanes <= degree; ++block) {
        if (!start_orders(*points, count, blocks.sectoral, &orders))
            break;
        const int first = block * kEgm96Lanes;
        const double *rows = packed + egm96_block_start(block); // of degree `first`
        for (int from = first / kChunk * kChunk; from <= degree; from += kChunk) {
            const int end = from + kChunk <= degree ? from + kChunk : degree + 1;
            weights_of_chunk(from, *points, count, chunk_weights[from / kChunk], weights);
            go_along_chunk(rows, first, from, end, recursion, weights, points->cos_theta, count, &orders);
        }
        finish_block(*points, count, orders, &blocks);
    }
    for (long i = 0; i < count; i += kLanes) {
        Lanes t[kEgm96Lanes];
        for (int lane = 0; lane < kEgm96Lanes; ++lane)
            t[lane] = load<Lanes>(blocks.total[lane] + i);
        store(((t[0] + t[1]) + (t[2] + t[3])) + ((t[4] + t[5]) + (t[6] + t[7])), points->sum + i);
    }
}

} // namespace KL_KERNELS
