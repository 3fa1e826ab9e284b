// Kernels of rotations.
#include "rotations/rotation_kernels.h"
#include "numbers/transposed.h"
#include "rotations/euler.h"

namespace KL_KERNELS {

void euler_matrices(const double *angles, double *matrices, long count)
{
    for (long i = 0; i < count; i += kLanes) {
        Lanes a[3];
        Lanes m[9];
        load_elements(angles, i, count, a);
        matrix_of(a, m);
        store_elements(m, matrices, i, count);
    }
}

} // namespace KL_KERNELS
