// The undulation of the geoid in a chosen way, for tests and benchmarks.
#ifndef KL_SRC_EARTH_GEOID_H
#define KL_SRC_EARTH_GEOID_H

#include "kl_family.h"

// As KL_Geoid_undu, which takes the widest kernel. -1: by the published routines, step by step; 0 by the baseline
// kernel, 1 and 2 by those for AVX2 and AVX-512, which give the same bits. -1 also when the machine or the build does
// not have the kernel.
long geoid_undulation_by(long way, const kl_geoid_input *inputs, double *height_anomaly_correction, double *undulation);

#endif
