// The celestial intermediate pole X, Y and the origin s of the IAU 2006/2000A precession and nutation, from a table of
// daily nodes.
#ifndef KL_SRC_ORIENTATION_CELESTIAL_POLE_H
#define KL_SRC_ORIENTATION_CELESTIAL_POLE_H

#include "orientation/jet.h"
#include "orientation/pole_layout.h"
#include "orientation/units.h"

#include <cstdint>

extern "C" {
extern const std::int32_t kl_pole_x[kPoleNodes] __attribute__((visibility("hidden")));
extern const std::int32_t kl_pole_y[kPoleNodes] __attribute__((visibility("hidden")));
extern const std::int16_t kl_pole_s[kPoleNodes] __attribute__((visibility("hidden")));
}

inline namespace KL_SET {

// ---- interpolation between equally spaced nodes ----
//
// Of 2 n nodes at x = -(n - 1/2) ... n - 1/2 the sums of opposite ones give the even part of the polynomial, their
// differences the odd one: two systems of size n in x squared instead of one of 2 n.

// c[k][j]: what node pair j adds to the coefficient of (x^2)^k.
template <int n>
struct PairCoefficients {
    double even[n][n], odd[n][n];
};

template <int n>
constexpr PairCoefficients<n> pair_coefficients()
{
    PairCoefficients<n> out{};
    for (int j = 0; j < n; ++j) {
        double basis[n] = {1.0}; // product of (z - z_i)/(z_j - z_i), z = x^2
        int degree = 0;
        const double zj = (j + 0.5) * (j + 0.5);
        for (int i = 0; i < n; ++i) {
            if (i == j)
                continue;
            const double zi = (i + 0.5) * (i + 0.5);
            for (int k = ++degree; k >= 0; --k)
                basis[k] = ((k > 0 ? basis[k - 1] : 0.0) - (k < degree ? zi * basis[k] : 0.0)) / (zj - zi);
        }
        for (int k = 0; k < n; ++k) {
            out.even[k][j] = 0.5 * basis[k];
            out.odd[k][j] = 0.5 * basis[k] / (j + 0.5);
        }
    }
    return out;
}

// Value and derivatives by x of the polynomial through the pairs; sums[j] = y(j + 1/2) + y(-j - 1/2), differences
// alike.
template <int order, int n, class T>
inline Jet<T> through_pairs(const T (&sums)[n], const T (&differences)[n], const T &x)
{
    constexpr PairCoefficients<n> by = pair_coefficients<n>();
    T c[2 * n];
    for (int k = 0; k < n; ++k) {
        T even = by.even[k][0] * sums[0];
        T odd = by.odd[k][0] * differences[0];
        for (int j = 1; j < n; ++j) {
            even = even + by.even[k][j] * sums[j];
            odd = odd + by.odd[k][j] * differences[j];
        }
        c[2 * k] = even;
        c[2 * k + 1] = odd;
    }
    Jet<T> out{c[2 * n - 1], c[2 * n - 1] * 0.0, c[2 * n - 1] * 0.0};
    for (int k = 2 * n - 2; k >= 0; --k) {
        if (order >= 2)
            out.acceleration = out.acceleration * x + 2.0 * out.rate;
        if (order >= 1)
            out.rate = out.rate * x + out.value;
        out.value = out.value * x + c[k];
    }
    return out;
}

// ---- the pole ----

constexpr int kPolePairs = 5;   // ten nodes: 1.1 microarcseconds; eight leave 4.8, six 29
constexpr int kOriginPairs = 3; // s is smooth

// What the table holds about an instant: the nodes about its day in the order of time, in counts.
struct PoleRows {
    double x[2 * kPolePairs], y[2 * kPolePairs], s[2 * kOriginPairs];
};

// Days of TT between which the nodes suffice.
inline bool inside_pole_table(long day)
{
    return day >= kPoleFirstDay + kPolePairs - 1 && day < kPoleLastDay - kPolePairs;
}

// Nodes about the day that begins at 0h TT of `day`.
inline PoleRows pole_rows(long day)
{
    PoleRows out;
    const long first = day - kPoleFirstDay;
    for (int j = 0; j < 2 * kPolePairs; ++j)
        out.x[j] = kl_pole_x[first + 1 - kPolePairs + j];
    for (int j = 0; j < 2 * kPolePairs; ++j)
        out.y[j] = kl_pole_y[first + 1 - kPolePairs + j];
    for (int j = 0; j < 2 * kOriginPairs; ++j)
        out.s[j] = kl_pole_s[first + 1 - kOriginPairs + j];
    return out;
}

// Sums and differences of pairs of nodes. X and Y stand side by side.
template <class T>
struct PoleNodes {
    T xy_sum[kPolePairs][2], xy_difference[kPolePairs][2];
    T s_sum[kOriginPairs], s_difference[kOriginPairs];
};

// rows[i]: those of the instant of lane i.
template <class T>
inline PoleNodes<T> pole_nodes(const PoleRows (&rows)[lanes_of<T>])
{
    const auto all = [&](const auto &number) {
        double lanes[lanes_of<T>];
        for (int i = 0; i < lanes_of<T>; ++i)
            lanes[i] = number(rows[i]);
        return load<T>(lanes);
    };
    PoleNodes<T> out;
    for (int j = 0; j < kPolePairs; ++j) {
        const int up = kPolePairs + j;
        const int down = kPolePairs - 1 - j;
        const T xa = all([=](const PoleRows &r) { return r.x[up]; });
        const T xb = all([=](const PoleRows &r) { return r.x[down]; });
        const T ya = all([=](const PoleRows &r) { return r.y[up]; });
        const T yb = all([=](const PoleRows &r) { return r.y[down]; });
        out.xy_sum[j][0] = xa + xb;
        out.xy_sum[j][1] = ya + yb;
        out.xy_difference[j][0] = xa - xb;
        out.xy_difference[j][1] = ya - yb;
    }
    for (int j = 0; j < kOriginPairs; ++j) {
        const T a = all([=](const PoleRows &r) { return r.s[kOriginPairs + j]; });
        const T b = all([=](const PoleRows &r) { return r.s[kOriginPairs - 1 - j]; });
        out.s_sum[j] = a + b;
        out.s_difference[j] = a - b;
    }
    return out;
}

template <class T>
struct CelestialPole {
    Jet<T> x, y;
    Jet<T> s; // s + XY/2 until the pole's offsets are in
};

// Counts of the table with the polynomial in t, in radians and seconds. A coefficient is a number or a pair of them.
template <int order, class T, class Coefficient>
inline Jet<T> with_polynomial(const Jet<T> &counts, const Coefficient (&polynomial)[6], const T &t)
{
    Jet<T> p{t * 0.0 + polynomial[5], t * 0.0, t * 0.0};
    for (int k = 4; k >= 0; --k) {
        if (order >= 2)
            p.acceleration = p.acceleration * t + 2.0 * p.rate;
        if (order >= 1)
            p.rate = p.rate * t + p.value;
        p.value = p.value * t + polynomial[k];
    }
    constexpr double kDay = 1.0 / kSecondsPerDay;
    constexpr double kCentury = 1.0 / (kDaysPerCentury * kSecondsPerDay);
    Jet<T> out = p;
    out.value = kRadPerMicroarcsecond * (kPoleUnit * counts.value + p.value);
    if (order >= 1)
        out.rate =
            (kRadPerMicroarcsecond * kPoleUnit * kDay) * counts.rate + (kRadPerMicroarcsecond * kCentury) * p.rate;
    if (order >= 2)
        out.acceleration = (kRadPerMicroarcsecond * kPoleUnit * kDay * kDay) * counts.acceleration
                           + (kRadPerMicroarcsecond * kCentury * kCentury) * p.acceleration;
    return out;
}

// At a fraction of the day of the nodes; t: Julian centuries of TT from J2000.0.
template <int order, class T>
inline CelestialPole<T> celestial_pole(const PoleNodes<T> &nodes, const T &fraction, const T &t)
{
    const T x = fraction - 0.5;
    const Jet<T> s =
        with_polynomial<order>(through_pairs<order>(nodes.s_sum, nodes.s_difference, x), kPoleSPolynomial, t);
    if constexpr (lanes_of<T> == 1) { // X and Y in one pack
        using Pair = Pack<2>;
        Pair sum[kPolePairs];
        Pair difference[kPolePairs];
        Pair polynomial[6];
        for (int j = 0; j < kPolePairs; ++j) {
            sum[j] = load<Pair>(nodes.xy_sum[j]);
            difference[j] = load<Pair>(nodes.xy_difference[j]);
        }
        for (int k = 0; k < 6; ++k) {
            const double both[2] = {kPoleXPolynomial[k], kPoleYPolynomial[k]};
            polynomial[k] = load<Pair>(both);
        }
        const Jet<Pair> xy =
            with_polynomial<order>(through_pairs<order>(sum, difference, Pair(x)), polynomial, Pair(t));
        return {{xy.value[0], xy.rate[0], xy.acceleration[0]}, {xy.value[1], xy.rate[1], xy.acceleration[1]}, s};
    } else {
        const auto one = [&](int i, const double(&polynomial)[6]) {
            T sum[kPolePairs];
            T difference[kPolePairs];
            for (int j = 0; j < kPolePairs; ++j) {
                sum[j] = nodes.xy_sum[j][i];
                difference[j] = nodes.xy_difference[j][i];
            }
            return with_polynomial<order>(through_pairs<order>(sum, difference, x), polynomial, t);
        };
        return {one(0, kPoleXPolynomial), one(1, kPoleYPolynomial), s};
    }
}

// s + XY/2 -> s.
template <int order, class T>
inline void separate_origin(CelestialPole<T> &p)
{
    p.s.value = p.s.value - 0.5 * (p.x.value * p.y.value);
    if (order >= 1)
        p.s.rate = p.s.rate - 0.5 * (p.x.rate * p.y.value + p.x.value * p.y.rate);
    if (order >= 2)
        p.s.acceleration =
            p.s.acceleration
            - (0.5 * (p.x.acceleration * p.y.value + p.x.value * p.y.acceleration) + p.x.rate * p.y.rate);
}

} // namespace KL_SET

#endif
