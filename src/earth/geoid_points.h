// The geoid at scattered points: points side by side, with the operations of one point (geoid_kernel.h) in their order,
// and so its bits.
#ifndef KL_SRC_EARTH_GEOID_POINTS_H
#define KL_SRC_EARTH_GEOID_POINTS_H

#include "numbers/kernels.h"

// Points of a pass over the coefficients, which come from the outer caches: the more points, the less they weigh. Whole
// groups of three packs of every set, and their rows do not fall on one another in the first-level cache as those of 64
// would.
constexpr int kGeoidPoints = 48;

struct GeoidPoints {
    alignas(64) double cos_theta[kGeoidPoints], sin_theta[kGeoidPoints]; // of the colatitude
    alignas(64) double weight[kGeoidPoints], ratio[kGeoidPoints];        // of degree 1; from degree to degree
    alignas(64) double c1[kGeoidPoints], s1[kGeoidPoints];               // of the longitude
    alignas(64) double c8[kGeoidPoints], s8[kGeoidPoints];               // of eight times the longitude
    alignas(64) double sum[kGeoidPoints];                                // comes back: centimetres
};

// `packed` as in egm96_layout.h, `degree` from 1 on, `count` a multiple of twice kMostLanes.
KL_KERNEL(geoid_points, (const double *packed, int degree, GeoidPoints *points, long count));

#endif
