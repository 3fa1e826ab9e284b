// Mean elements: osculating ones less the short-period terms of J2. First order of D. Brouwer, Astron. J. 64, 378
// (1959), regrouped as R. H. Lyddane, Astron. J. 68, 555 (1963), did; no long-period and no secular terms, so that no
// inclination is critical.
#ifndef KL_SRC_ORBITS_MEAN_ELEMENTS_H
#define KL_SRC_ORBITS_MEAN_ELEMENTS_H

#include "orbits/kepler.h"

struct Oblateness {
    double j2;
    double radius; // m
};

enum class MeanStatus { found, not_elliptic, not_converged };

// Are these within the theory: e < 0.99, and a semi-latus rectum of more than half the radius?
bool mean_elements_allowed(const Oblateness &field, double a, double e);

// Both ways in radians; mean anomaly -pi to pi on the way out of `mean_to_osculating`.
MeanStatus mean_to_osculating(const Oblateness &field, const Elements &mean, Elements *osculating);
MeanStatus osculating_to_mean(const Oblateness &field, const Elements &osculating, Elements *mean);

#endif
