// No closed formulas above order 2: they lose half the digits where roots lie close. The roots of the derivative cut
// the line into pieces on which the polynomial is monotone; a piece whose ends differ in sign holds one root.
#include "geometry/roots.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

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

// ---- order 1 and 2 ----

// The rounding of a product, without a fused operation: exact while nothing underflows (T. J. Dekker, Numer. Math. 18,
// 224 (1971)).
double product_error(double a, double b, double product)
{
    constexpr double kSplit = 0x1p27 + 1.0;
    const double ca = kSplit * a;
    const double cb = kSplit * b;
    const double ah = ca - (ca - a);
    const double bh = cb - (cb - b);
    const double al = a - ah;
    const double bl = b - bh;
    return ((ah * bh - product) + ah * bl + al * bh) + al * bl;
}

Roots roots_of_quadratic(double c, double b, double a)
{
    Roots out;
    const double square = b * b;
    const double product = 4.0 * a * c;
    const double disc = (square - product) + (product_error(b, b, square) - product_error(4.0 * a, c, product));
    if (disc < 0.0)
        return out;
    if (disc == 0.0) {
        out.add(-0.5 * b / a);
        return out;
    }
    const double q = -0.5 * (b + std::copysign(std::sqrt(disc), b));
    const double one = q / a;
    const double other = c / q;
    out.add(std::min(one, other));
    out.add(std::max(one, other));
    return out;
}

// ---- a root in a piece ----

// The polynomial changes its sign between the ends and is monotone.
double root_between(const Polynomial &f, double low, double p_low, double high, double p_high)
{
    constexpr int kLimit = 200; // bisection alone ends sooner
    const bool rising = p_high > p_low;
    double x = low - p_low * ((high - low) / (p_high - p_low));
    if (!(x > low && x < high))
        x = 0.5 * (low + high);
    for (int step = 0; step < kLimit; ++step) {
        // Value and both derivatives in one pass; d2 is half the second one.
        double p = f.c[f.order];
        double d1 = 0.0;
        double d2 = 0.0;
        for (int i = f.order - 1; i >= 0; --i) {
            d2 = d2 * x + d1;
            d1 = d1 * x + p;
            p = p * x + f.c[i];
        }
        if (p == 0.0)
            return x;
        if ((p < 0.0) == rising)
            low = x;
        else
            high = x;
        double next = x - p * d1 / (d1 * d1 - p * d2); // Halley
        if (!(next > low && next < high)) {
            // A step onto an end is one of rounding, unless the end is still far.
            if (std::fabs(next - x) <= 2.0 * 2.0 * kUnit * std::fabs(x))
                return x;
            next = 0.5 * (low + high);
            if (!(next > low && next < high))
                return x;
        }
        const double moved = std::fabs(next - x);
        x = next;
        if (moved <= 2.0 * 2.0 * kUnit * std::fabs(x))
            break;
    }
    return x;
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

Roots roots_of(const Polynomial &f)
{
    Roots out;
    if (f.order == 1) {
        out.add(-f.c[0] / f.c[1]);
        return out;
    }
    if (f.order == 2)
        return roots_of_quadratic(f.c[0], f.c[1], f.c[2]);

    Polynomial derivative = {f.order - 1, {}};
    for (int i = 1; i <= f.order; ++i)
        derivative.c[i - 1] = i * f.c[i];
    const Roots turning = roots_of(derivative);

    // Ends and turning points. Neighbours at which the value is lost in rounding are one root, several times.
    const double bound = bound_of_roots(f);
    if (bound == 0.0) { // c x^n
        out.add(0.0);
        return out;
    }
    double x_before = -bound;
    Value before = value_at(f, x_before);
    int sign_before = sign_of(before);
    double first_of_run = 0.0;
    const auto end_run = [&] {
        if (sign_before == 0)
            out.add(0.5 * (first_of_run + x_before));
    };
    for (int i = 0; i <= turning.n; ++i) {
        const double x = i < turning.n ? turning.x[i] : bound;
        const Value here = value_at(f, x);
        const int sign = sign_of(here);
        if (sign == 0) {
            if (sign_before != 0)
                first_of_run = x;
        } else {
            end_run();
            if (sign_before * sign < 0)
                out.add(root_between(f, x_before, before.p, x, here.p));
        }
        x_before = x;
        before = here;
        sign_before = sign;
    }
    end_run();
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
bool is_tame(const Polynomial &f)
{
    constexpr double kLarge = 0x1p80;
    bool tame = std::fabs(f.c[f.order]) > 1.0 / kLarge;
    for (int i = 0; i <= f.order; ++i) {
        const double size = std::fabs(f.c[i]);
        tame &= size < kLarge && (size > 1.0 / kLarge || size == 0.0);
    }
    return tame;
}

// The whole divided by a power of two, and x by another one, so that the largest root is near 1 and the leading
// coefficient too. Roots below 1e-300 of the largest may come out as 0.
int scale(Polynomial *f)
{
    const int n = f->order;
    const int leading = exponent_of(f->c[n]);
    int largest = -5000;
    for (int i = 0; i < n; ++i)
        if (f->c[i] != 0.0) {
            const int above = exponent_of(f->c[i]) - leading;
            const int power = n - i;
            const int root = above >= 0 ? (above + power - 1) / power : above / power;
            largest = std::max(largest, root);
        }
    if (largest == -5000)
        largest = 0;
    for (int i = 0; i <= n; ++i)
        f->c[i] = std::ldexp(f->c[i], (i - n) * largest - leading);
    return largest;
}

// Are the roots of a quadratic so different that each is a quotient of two coefficients?
bool lie_far_apart(const Polynomial &f)
{
    constexpr int kBits = 120;
    return f.c[1] != 0.0
           && (f.c[0] == 0.0 || 2 * exponent_of(f.c[1]) - exponent_of(f.c[0]) - exponent_of(f.c[2]) > kBits);
}

} // namespace

long real_roots(long order, const double *c, double roots[4])
{
    if (order < 1 || order > kLargestOrder)
        return -1;
    Polynomial f = {0, {}};
    for (int i = 0; i <= static_cast<int>(order); ++i) {
        if (!std::isfinite(c[i]))
            return -1;
        f.c[i] = c[i];
        if (c[i] != 0.0)
            f.order = i;
    }
    if (f.order == 0)
        return -1;

    const bool tame = is_tame(f);
    if (!tame && f.order == 2 && lie_far_apart(f)) {
        const double one = -f.c[1] / f.c[2];
        const double other = -f.c[0] / f.c[1];
        roots[0] = std::min(one, other) + 0.0;
        roots[1] = std::max(one, other) + 0.0;
        return 2;
    }
    const int exponent = tame ? 0 : scale(&f);
    const Roots found = roots_of(f);
    for (int i = 0; i < found.n; ++i)
        roots[i] = exponent == 0 ? found.x[i] : std::ldexp(found.x[i], exponent);
    return found.n;
}
