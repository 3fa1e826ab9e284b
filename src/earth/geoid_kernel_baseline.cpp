// The narrowest vectors: any machine of the build.
#define KL_GEOID_VECTOR_BYTES 16
#include "earth/geoid_kernel.h"

void geoid_sums_baseline(const double *packed, int max_degree, double cos_theta, double sin_theta, const double *weight,
                         GeoidSums *sums)
{
    sum_blocks(packed, max_degree, cos_theta, sin_theta, weight, sums);
}
