// How many lanes an instruction set has.
#include "numbers/kernels.h"
#include "numbers/pack.h"

KL_KERNEL(lanes_of_set, (int *lanes));

namespace KL_KERNELS {

void lanes_of_set(int *lanes)
{
    *lanes = kLanes;
}

} // namespace KL_KERNELS
