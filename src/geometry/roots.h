// Real roots of polynomials of order 1 to 4.
#ifndef KL_SRC_GEOMETRY_ROOTS_H
#define KL_SRC_GEOMETRY_ROOTS_H

constexpr long kLargestOrder = 4;

// Distinct real roots of c[0] + c[1] x + ... + c[order] x^order, ascending: their number, or -1 when the order is not 1
// to 4, a coefficient is not finite, or all but the first are zero.
long real_roots(long order, const double *c, double roots[4]);

#endif
