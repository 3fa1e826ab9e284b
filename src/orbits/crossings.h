// Zeros of a smooth function of time.
#ifndef KL_SRC_ORBITS_CROSSINGS_H
#define KL_SRC_ORBITS_CROSSINGS_H

#include "kl_lib.h"

struct CrossingSearch {
    kl_crossing_function f;
    void *context;
    double start, stop, step, tolerance; // days
};

// KL_OK; KL_WARN when `found` had no room for all; KL_ERR when the function failed or gave what is no number.
long find_crossings(const CrossingSearch &search, long room, long *n, kl_crossing *found);

#endif
