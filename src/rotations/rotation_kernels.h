// Kernels of rotations: blocks of elements.
#ifndef KL_SRC_ROTATIONS_ROTATION_KERNELS_H
#define KL_SRC_ROTATIONS_ROTATION_KERNELS_H

#include "numbers/kernels.h"

// Matrices of rotation angles in degrees; `count` elements, one after the other in both arrays.
KL_KERNEL(euler_matrices, (const double *angles, double *matrices, long count));

#endif
