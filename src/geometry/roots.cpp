// No closed formulas above order 2: they lose half the digits where roots lie close. The roots of the derivative cut
// the line into pieces on which the polynomial is monotone; a piece whose ends differ in sign holds one root.
#include "geometry/roots.h"

#include "numbers/elementary.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

namespace {

constexpr double kUnit = 0x1p-53; // half a unit of the last place of 1

struct Polynomial {
    int order;
    double c[kLargestOrder + 1];
};

struct Roots {
    int n = 0;
    double x[kLargestOrder];

    void add(double root) { x[n++] = root + 0.0; } // no negative zero
};

// ---- values ----

struct Value {
    double p, noise; // noise: twice the bound of what rounding can have done to p
};

// The running error bound of Horner's scheme (N. J. Higham, Accuracy and Stability of Numerical Algorithms, 5.1).
Value value_at(const Polynomial &f, double x)
{
    const double size = std::fabs(x);
    double p = f.c[f.order];
    double sum = 0.5 * std::fabs(p);
    for (int i = f.order - 1; i >= 0; --i) {
        p = p * x + f.c[i];
        sum = sum * size + std::fabs(p);
    }
    return {p, 2.0 * kUnit * (2.0 * sum - std::fabs(p))};
}

int sign_of(const Value &value)
{
    return std::fabs(value.p) <= value.noise ? 0 : value.p > 0.0 ? 1 : -1;
}

// ---- a root in a piece ----

// Value and derivatives at a point: p, p', p''/2.
struct Taylor {
    double p, d1, d2;
};

Taylor taylor_at(const Polynomial &f, double x)
{
    Taylor out = {f.c[f.order], 0.0, 0.0};
    for (int i = f.order - 1; i >= 0; --i) {
        out.d2 = out.d2 * x + out.d1;
        out.d1 = out.d1 * x + out.p;
        out.p = out.p * x + f.c[i];
    }
    return out;
}

// One more step of Newton with the value in twice the digits, by the compensated scheme of S. Graillat, P. Langlois and
// N. Louvet, Japan J. Indust. Appl. Math. 26, 191 (2009).
double corrected(const Polynomial &f, double low, double high, double x)
{
    double p = f.c[f.order];
    double lost = 0.0; // by rounding, to be added to p
    double d1 = 0.0;
    for (int i = f.order - 1; i >= 0; --i) {
        d1 = d1 * x + p;
        const double product = p * x;
        const double sum = product + f.c[i];
        const double part = sum - product;
        lost = lost * x + (exact_product(p, x).low + ((product - (sum - part)) + (f.c[i] - part)));
        p = sum;
    }
    const double next = x - (p + lost) / d1;
    return next > low && next < high ? next : x;
}

// A few per cent from the n-th root of a positive number: the exponent divided by n.
double rough_root(double x, int n)
{
    constexpr std::int64_t kOne = std::int64_t{1023} << 52;
    std::int64_t bits;
    std::memcpy(&bits, &x, sizeof bits);
    bits = kOne + (bits - kOne) / n;
    std::memcpy(&x, &bits, sizeof x);
    return x;
}

// How near a root of a derivative must come: the value at a turning point changes with the square of its error.
enum class Search { turning_point, root };

// The polynomial changes its sign between the ends and is monotone.
double root_between(const Polynomial &f, double low, double high, bool rising, double start, Search search)
{
    constexpr int kLimit = 2400; // steps that halve x from either side end sooner
    const double enough = search == Search::root ? 4.0 * kUnit : 1e-6;
    double x = start > low && start < high ? start : 0.5 * (low + high);
    double moved_before = 0.0;
    for (int step = 0; step < kLimit; ++step) {
        const Taylor at = taylor_at(f, x);
        if (at.p == 0.0)
            return x;
        if ((at.p < 0.0) == rising)
            low = x;
        else
            high = x;
        const double slope = at.d1 * at.d1 - at.p * at.d2;
        double next = slope != 0.0 ? x - at.p * at.d1 / slope : std::numeric_limits<double>::infinity(); // Halley
        if (!(next > low && next < high)) {
            // A step onto an end is one of rounding, unless the end is still far, or is a turning point, beside which
            // steps are short however large the value.
            if (std::fabs(next - x) <= 4.0 * kUnit * std::fabs(x) && sign_of(value_at(f, x)) == 0)
                return x;
            next = 0.5 * (low + high);
            if (!(next > low && next < high))
                return x;
            moved_before = 0.0;
        }
        const double moved = std::fabs(next - x);
        x = next;
        if (moved <= enough * std::fabs(x))
            break;
        // Where each step shortens the next as the cube, the next one is moved (moved/moved_before)^3.
        const double square = moved * moved;
        if (moved < 0.01 * moved_before
            && square * square <= kUnit * std::fabs(x) * (moved_before * moved_before * moved_before))
            break;
        moved_before = moved;
    }
    return search == Search::root ? corrected(f, low, high, x) : x;
}

// ---- order 3 and 4 ----

// Bound of all roots: M. Fujiwara, Tohoku Math. J. 10, 167 (1916).
double bound_of_roots(const Polynomial &f)
{
    const int n = f.order;
    const double per_leading = 1.0 / f.c[n];
    double bound = std::fabs(f.c[n - 1] * per_leading);
    bound = std::max(bound, std::sqrt(std::fabs(f.c[n - 2] * per_leading)));
    const double third = std::fabs(f.c[n - 3] * per_leading);
    if (third > bound * bound * bound) { // a power of two above the cube root
        int exponent = 0;
        std::frexp(third, &exponent);
        bound = std::ldexp(1.0, exponent >= 0 ? (exponent + 2) / 3 : exponent / 3);
    }
    if (n == 4) {
        const double fourth = std::fabs(f.c[0] * per_leading);
        if (fourth > (bound * bound) * (bound * bound))
            bound = std::sqrt(std::sqrt(fourth));
    }
    return 2.0 * bound;
}

// The same root to rounding.
double root_near(const Polynomial &f, double x)
{
    for (int step = 0; step < 4; ++step) {
        const Taylor at = taylor_at(f, x);
        const double slope = at.d1 * at.d1 - at.p * at.d2;
        if (slope == 0.0)
            break;
        const double by = at.p * at.d1 / slope;
        if (!(std::fabs(by) <= 1e-3 * std::fabs(x)))
            break; // a multiple one, lost in rounding
        x -= by;
        if (std::fabs(by) <= 4.0 * kUnit * std::fabs(x))
            break;
    }
    return x;
}

// A turning point, or an end of the line.
struct Mark {
    double x, p;
    int sign;
};

// Where to start: outside the last turning point the parabola there and the leading term bound the way to the root.
double start_beyond(const Polynomial &f, const Mark &turning, double side)
{
    const double curvature = taylor_at(f, turning.x).d2;
    const double by_leading = rough_root(std::fabs(turning.p / f.c[f.order]), f.order);
    const double square = curvature != 0.0 ? -turning.p / curvature : 0.0;
    const double way = square > 0.0 && square < by_leading * by_leading ? std::sqrt(square) : by_leading;
    return turning.x + side * way;
}

// Between two turning points the cubic that turns there too: s^2 (3 - 2 s) of the way, from the nearer end.
double start_between(const Mark &low, const Mark &high)
{
    const bool from_low = std::fabs(low.p) < std::fabs(high.p);
    const double y = (from_low ? low.p : -high.p) / (low.p - high.p);
    const double s = std::sqrt(y / (3.0 - 2.0 * std::sqrt(y * (1.0 / 3.0))));
    const double way = (high.x - low.x) * s;
    return from_low ? low.x + way : high.x - way;
}

// A cubic without turning points: from where it is steepest or flattest.
double start_on_the_line(const Polynomial &f)
{
    const double x = -f.c[2] / (3.0 * f.c[3]);
    const Taylor at = taylor_at(f, x);
    const double by_leading = rough_root(std::fabs(at.p / f.c[3]), 3);
    const double way = at.d1 != 0.0 ? std::min(std::fabs(at.p / at.d1), by_leading) : by_leading;
    return (at.p < 0.0) == (f.c[3] > 0.0) ? x + way : x - way;
}

// Not inline: of coefficients just written the compiler would load two at once, and the load wait for both.
[[gnu::noinline]] int roots_by_value(double c, double b, double a, double roots[2])
{
    return static_cast<int>(roots_of_quadratic(c, b, a, roots));
}

Roots roots_of(const Polynomial &f, Search search)
{
    Roots out;
    if (f.order == 1) {
        out.add(-f.c[0] / f.c[1]);
        return out;
    }
    if (f.order == 2) {
        out.n = roots_by_value(f.c[0], f.c[1], f.c[2], out.x);
        return out;
    }

    Polynomial derivative = {f.order - 1, {}};
    for (int i = 1; i <= f.order; ++i)
        derivative.c[i - 1] = i * f.c[i];
    Roots turning = roots_of(derivative, Search::turning_point);
    const double bound = bound_of_roots(f);
    if (bound == 0.0) { // c x^n
        out.add(0.0);
        return out;
    }

    // Ends and turning points. Neighbours at which the value is lost in rounding are one root, several times.
    const int sign_at_end = f.c[f.order] > 0.0 ? 1 : -1;
    Mark before = {-bound, 0.0, f.order == 3 ? -sign_at_end : sign_at_end};
    double first_of_run = 0.0;
    for (int i = 0; i <= turning.n; ++i) {
        Mark here = {bound, 0.0, sign_at_end};
        if (i < turning.n) {
            const Value value = value_at(f, turning.x[i]);
            here = {turning.x[i], value.p, sign_of(value)};
            if (here.sign == 0 && search == Search::root && derivative.order > 2)
                here.x = root_near(derivative, here.x);
        }
        if (here.sign == 0) {
            if (before.sign != 0)
                first_of_run = here.x;
        } else if (before.sign == 0) {
            out.add(0.5 * (first_of_run + before.x));
        } else if (before.sign != here.sign) {
            const double start = turning.n == 0   ? start_on_the_line(f)
                                 : i == 0         ? start_beyond(f, here, -1.0)
                                 : i == turning.n ? start_beyond(f, before, 1.0)
                                                  : start_between(before, here);
            out.add(root_between(f, before.x, here.x, here.sign > 0, start, search));
        }
        before = here;
    }
    return out;
}

// ---- scales ----

int exponent_of(double x)
{
    int e = 0;
    std::frexp(x, &e);
    return e;
}

// Neither the bound of the roots nor the powers of it leave the range of double.
bool all_are_tame(const Polynomial &f)
{
    bool tame = is_tame(f.c[f.order]);
    for (int i = 0; i < f.order; ++i)
        tame &= f.c[i] == 0.0 || is_tame(f.c[i]);
    return tame;
}

// The whole divided by a power of two, and x by another one, so that the largest root is near 1 and the leading
// coefficient too.
int scale(Polynomial *f)
{
    const int n = f->order;
    const int leading = exponent_of(f->c[n]);
    int largest = std::numeric_limits<int>::min();
    for (int i = 0; i < n; ++i)
        if (f->c[i] != 0.0) {
            const int above = exponent_of(f->c[i]) - leading;
            const int power = n - i;
            const int root = above >= 0 ? (above + power - 1) / power : above / power;
            largest = std::max(largest, root);
        }
    for (int i = 0; i <= n; ++i)
        f->c[i] = std::ldexp(f->c[i], (i - n) * largest - leading);
    return largest;
}

// Those of the coefficients first to last alone, neither of them 0, put in their places.
void add_roots_of_part(const Polynomial &f, int first, int last, Roots *out)
{
    Polynomial part = {last - first, {}};
    std::copy(f.c + first, f.c + last + 1, part.c);
    const int exponent = scale(&part);
    const Roots found = roots_of(part, Search::root);
    for (int i = 0; i < found.n; ++i) {
        out->add(std::ldexp(found.x[i], exponent));
        for (int k = out->n - 1; k > 0 && out->x[k] < out->x[k - 1]; --k)
            std::swap(out->x[k], out->x[k - 1]);
    }
}

// Of any size; c[0] is not 0. Roots of very different sizes do not know of each other: each edge of Newton's polygon,
// the upper hull of the coefficients' exponents, gives the size of as many roots as it is long, the smallest first.
Roots roots_of_any_size(const Polynomial &f)
{
    constexpr double kApart = 64.0; // bits: what is left out is below the rounding of the coefficients
    Roots out;
    if (f.order == 0)
        return out;
    if (all_are_tame(f))
        return roots_of(f, Search::root);
    int first = 0;
    double before = HUGE_VAL; // the size of the roots of the last edge, bits
    for (int at = 0; at < f.order;) {
        double size = HUGE_VAL;
        int next = at;
        for (int j = at + 1; j <= f.order; ++j) {
            const double edge = static_cast<double>(exponent_of(f.c[at]) - exponent_of(f.c[j])) / (j - at);
            if (f.c[j] != 0.0 && edge <= size) {
                size = edge;
                next = j;
            }
        }
        if (size - before > kApart) {
            add_roots_of_part(f, first, at, &out);
            first = at;
        }
        before = size;
        at = next;
    }
    add_roots_of_part(f, first, f.order, &out);
    return out;
}

} // namespace

long real_roots_of_any(long order, const double *c, double roots[4])
{
    if (order < 1 || order > kLargestOrder)
        return -1;
    Polynomial f = {0, {}};
    int zeros = 0;
    for (int i = 0; i <= static_cast<int>(order); ++i) {
        if (!std::isfinite(c[i]))
            return -1;
        f.c[i] = c[i];
        if (c[i] != 0.0)
            f.order = i;
        else if (f.order == 0 && c[0] == 0.0)
            ++zeros;
    }
    if (f.order == 0)
        return -1;
    // Roots of 0 are taken out exactly: rounding would make a value beside them one of its own.
    if (zeros > 0) {
        f.order -= zeros;
        std::copy(c + zeros, c + zeros + f.order + 1, f.c);
    }
    const Roots found = roots_of_any_size(f);

    int n = 0;
    bool zero_is_due = zeros > 0;
    for (int i = 0; i <= found.n; ++i) {
        if (zero_is_due && (i == found.n || found.x[i] >= 0.0)) {
            roots[n++] = 0.0;
            zero_is_due = false;
        }
        if (i < found.n && (n == 0 || found.x[i] != roots[n - 1])) // two that left the range are one
            roots[n++] = found.x[i];
    }
    return n;
}
