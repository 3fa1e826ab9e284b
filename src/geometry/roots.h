// Real roots of polynomials of order 1 to 4.
#ifndef KL_SRC_GEOMETRY_ROOTS_H
#define KL_SRC_GEOMETRY_ROOTS_H

#include "numbers/pack.h"

constexpr long kLargestOrder = 4;

inline namespace KL_SET {

// So far from both ends of the range that neither powers nor products of a few leave it; not zero.
inline bool is_tame(double coefficient)
{
    constexpr std::uint64_t kLeast = std::uint64_t{1023 - 80} << 53; // 2^-80, 2^80: the bits without the sign
    constexpr std::uint64_t kMost = std::uint64_t{1023 + 80} << 53;
    return (bits_of(coefficient) << 1) - (kLeast + 1) < kMost - (kLeast + 1);
}

// Of tame coefficients, or scaled ones: their number. The rounding of both products of the discriminant is taken back
// without a fused operation (T. J. Dekker, Numer. Math. 18, 224 (1971)), of both at once.
inline long roots_of_quadratic(double c, double b, double a, double roots[2])
{
    using Pair = Pack<2>;
    constexpr double kSplit = 0x1p27 + 1.0;
    const Pair x(Pair::Vector{b, 4.0 * a});
    const Pair y(Pair::Vector{b, c});
    const Pair sx = kSplit * x;
    const Pair sy = kSplit * y;
    const Pair xh = sx - (sx - x);
    const Pair yh = sy - (sy - y);
    const Pair xl = x - xh;
    const Pair yl = y - yh;
    const Pair product = x * y;
    const Pair error = ((xh * yh - product) + xh * yl + xl * yh) + xl * yl;
    const double disc = (product[0] - product[1]) + (error[0] - error[1]);
    if (disc > 0.0) {
        const double q = -0.5 * (b + copysign(sqrt(disc), b));
        const Pair root = Pair(Pair::Vector{q, c}) / Pair(Pair::Vector{a, q}) + 0.0;
        roots[0] = lesser(root[1], root[0]);
        roots[1] = greater(root[1], root[0]);
        return 2;
    }
    if (disc == 0.0)
        roots[0] = -0.5 * b / a + 0.0;
    return disc == 0.0;
}

} // namespace KL_SET

long real_roots_of_any(long order, const double *c, double roots[4]);

// Distinct real roots of c[0] + c[1] x + ... + c[order] x^order, ascending: their number, or -1 when the order is not 1
// to 4, a coefficient is not finite, or all but the first are zero.
inline long real_roots(long order, const double *c, double roots[4])
{
    if (order == 2 && is_tame(c[0]) && is_tame(c[1]) && is_tame(c[2])) // what most quadratics are
        return roots_of_quadratic(c[0], c[1], c[2], roots);
    return real_roots_of_any(order, c, roots);
}

#endif
