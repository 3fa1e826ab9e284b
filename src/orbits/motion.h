// Two simple motions: mean elements that drift by the secular rates of J2, and states in memory.
#ifndef KL_SRC_ORBITS_MOTION_H
#define KL_SRC_ORBITS_MOTION_H

#include "kl_lib.h"
#include "orbits/mean_elements.h"

// Mean elements after a time, s; degrees in, degrees in [0, 360) out. Allowed: see mean_elements_allowed.
kl_kepler drifted(double gm, const Oblateness &field, const kl_kepler &mean, double duration);

struct Interpolated {
    double pos[3], vel[3];
    double error; // m, of the same with one state fewer
};

// Hermite's polynomial through the up to six states nearest to an instant, in the order of time. False where they do
// not ascend, are out of range, or do not enclose the instant.
bool interpolate(const kl_state_at *states, long n, double time, Interpolated *out);

#endif
