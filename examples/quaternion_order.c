/* Which quaternion order: the vector part first, the scalar last, and it turns axes, not vectors. */
#include "kl_lib.h"

#include <math.h>
#include <stdio.h>
#include <stdlib.h>

int main(void)
{
    const double half = sqrt(0.5);
    const double q[4] = {0.0, 0.0, half, half}; /* a quarter turn about z */
    double scalar_first[4], x[3], y[3], z[3], from_other[4];
    int i;

    if (kl_quaternions_to_vectors(q, x, y, z, NULL) == KL_ERR)
        return EXIT_FAILURE;
    printf("x %4.1f %4.1f %4.1f   y %4.1f %4.1f %4.1f   z %4.1f %4.1f %4.1f\n", x[0], x[1], x[2], y[0], y[1], y[2],
           z[0], z[1], z[2]);

    /* Elsewhere the scalar often comes first: move it, nothing else. */
    for (i = 0; i < 4; ++i)
        scalar_first[i] = q[(i + 3) % 4];
    for (i = 0; i < 4; ++i)
        from_other[i] = scalar_first[(i + 1) % 4];
    printf("back in our order: %.4f %.4f %.4f %.4f\n", from_other[0], from_other[1], from_other[2], from_other[3]);
    return EXIT_SUCCESS;
}
