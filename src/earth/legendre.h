// Fully normalised Legendre functions of one order.
#ifndef KL_SRC_EARTH_LEGENDRE_H
#define KL_SRC_EARTH_LEGENDRE_H

#include "numbers/elementary.h"

// P(n,m) of the colatitude at index n, for n = m to nmax.
void legendre_functions(long m, const SineCosine<double> &theta, double *p, long nmax);

#endif
