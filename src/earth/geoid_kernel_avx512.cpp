// Compiled with AVX-512, called only where the machine has it.
#define KL_GEOID_VECTOR_BYTES 64
#include "earth/geoid_kernel.h"

void geoid_sums_avx512(const double *packed, int max_degree, double cos_theta, double sin_theta, const double *weight,
                       GeoidSums *sums)
{
    sum_blocks(packed, max_degree, cos_theta, sin_theta, weight, sums);
}
