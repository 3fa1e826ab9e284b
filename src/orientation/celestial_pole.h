// The celestial intermediate pole X, Y and the origin s of the IAU 2006/2000A precession and nutation, from a table of
// daily nodes.
#ifndef KL_SRC_ORIENTATION_CELESTIAL_POLE_H
#define KL_SRC_ORIENTATION_CELESTIAL_POLE_H

#include "numbers/constants.h"
#include "numbers/transposed.h"
#include "orientation/jet.h"
#include "orientation/pole_layout.h"

#include <cstdint>

extern "C" {
extern const std::int32_t kl_pole_xy[2 * kPoleNodes] __attribute__((visibility("hidden")));
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
    double side_by_side[n][n][4]; // even, even, odd, odd
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
            for (int i = 0; i < 4; ++i)
                out.side_by_side[k][j][i] = i < 2 ? out.even[k][j] : out.odd[k][j];
        }
    }
    return out;
}

// Value and derivatives by x of the polynomial through the nodes in their order.
template <int order, int n2, class T>
inline Jet<T> through_nodes(const T (&nodes)[n2], const T &x)
{
    constexpr int n = n2 / 2;
    T sums[n];
    T differences[n];
    for (int j = 0; j < n; ++j) {
        sums[j] = nodes[n + j] + nodes[n - 1 - j];
        differences[j] = nodes[n + j] - nodes[n - 1 - j];
    }
    static constexpr PairCoefficients<n> by = pair_coefficients<n>();
    T c[2 * n];
    for (int k = 0; k < n; ++k)
        if constexpr (lanes_of<T> == 2 && kLanes >= 4) { // the even and the odd coefficient in one register
            Pack<4> both = load<Pack<4>>(by.side_by_side[k][0]) * joined(sums[0], differences[0]);
            for (int j = 1; j < n; ++j)
                both = both + load<Pack<4>>(by.side_by_side[k][j]) * joined(sums[j], differences[j]);
            c[2 * k] = T(shuffled<0, 1>(both.v, both.v));
            c[2 * k + 1] = T(shuffled<2, 3>(both.v, both.v));
        } else {
            c[2 * k] = by.even[k][0] * sums[0];
            c[2 * k + 1] = by.odd[k][0] * differences[0];
            for (int j = 1; j < n; ++j) {
                c[2 * k] = c[2 * k] + by.even[k][j] * sums[j];
                c[2 * k + 1] = c[2 * k + 1] + by.odd[k][j] * differences[j];
            }
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

// Days of TT between which the nodes suffice.
template <class T>
mask_of<T> inside_pole_table(const T &day)
{
    return (day >= T(kPoleFirstDay + kPolePairs - 1)) & (day < T(kPoleLastDay - kPolePairs));
}

// The first of the nodes about the day that begins at 0h TT of `day`.
template <int pairs>
inline long first_node(double day)
{
    return static_cast<long>(day) - kPoleFirstDay + 1 - pairs;
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
    constexpr double kDay = 1.0 / KL_SECONDS_PER_DAY;
    constexpr double kCentury = 1.0 / (KL_DAYS_PER_CENTURY * KL_SECONDS_PER_DAY);
    Jet<T> out = p;
    out.value = KL_RAD_PER_MICROARCSEC * (kPoleUnit * counts.value + p.value);
    if (order >= 1)
        out.rate =
            (KL_RAD_PER_MICROARCSEC * kPoleUnit * kDay) * counts.rate + (KL_RAD_PER_MICROARCSEC * kCentury) * p.rate;
    if (order >= 2)
        out.acceleration = (KL_RAD_PER_MICROARCSEC * kPoleUnit * kDay * kDay) * counts.acceleration
                           + (KL_RAD_PER_MICROARCSEC * kCentury * kCentury) * p.acceleration;
    return out;
}

// At the instants of the lanes: day and fraction of TT, and t, Julian centuries of TT from J2000.0.
template <int order, class T>
inline CelestialPole<T> celestial_pole(const double (&day)[lanes_of<T>], const T &fraction, const T &t)
{
    const T x = fraction - 0.5;
    const std::int16_t *s_at[lanes_of<T>];
    const std::int32_t *xy_at[lanes_of<T>];
    for (int i = 0; i < lanes_of<T>; ++i) {
        s_at[i] = kl_pole_s + first_node<kOriginPairs>(day[i]);
        xy_at[i] = kl_pole_xy + 2 * first_node<kPolePairs>(day[i]);
    }
    T s_nodes[2 * kOriginPairs];
    gather(s_at, s_nodes);
    const Jet<T> s = with_polynomial<order>(through_nodes<order>(s_nodes, x), kPoleSPolynomial, t);
    if constexpr (lanes_of<T> == 1) { // X and Y in one pack
        using Pair = Pack<2>;
        Pair nodes[2 * kPolePairs];
        for (int j = 0; j < 2 * kPolePairs; ++j)
            nodes[j] = load<Pair>(xy_at[0] + 2 * j);
        Pair polynomial[6];
        for (int k = 0; k < 6; ++k) {
            const double both[2] = {kPoleXPolynomial[k], kPoleYPolynomial[k]};
            polynomial[k] = load<Pair>(both);
        }
        const Jet<Pair> xy = with_polynomial<order>(through_nodes<order>(nodes, Pair(x)), polynomial, Pair(t));
        return {{xy.value[0], xy.rate[0], xy.acceleration[0]}, {xy.value[1], xy.rate[1], xy.acceleration[1]}, s};
    } else {
        T both[4 * kPolePairs];
        gather(xy_at, both);
        const auto one = [&](int first, const double(&polynomial)[6]) {
            T nodes[2 * kPolePairs];
            for (int j = 0; j < 2 * kPolePairs; ++j)
                nodes[j] = both[2 * j + first];
            return with_polynomial<order>(through_nodes<order>(nodes, x), polynomial, t);
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
