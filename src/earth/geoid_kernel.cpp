// The choice of a kernel.
#include "earth/geoid_kernel.h"

#include "numbers/kernels.h"

namespace {

#ifdef KL_GEOID_X86_KERNELS
bool has_avx2()
{
    return __builtin_cpu_supports("avx2");
}
bool has_avx512()
{
    return __builtin_cpu_supports("avx512f");
}
#endif

} // namespace

GeoidKernel geoid_kernel(long number)
{
    if (number == 0)
        return geoid_sums_baseline;
#ifdef KL_GEOID_X86_KERNELS
    __builtin_cpu_init();
    if (number == 1 && has_avx2())
        return geoid_sums_avx2;
    if (number == 2 && has_avx512())
        return geoid_sums_avx512;
#endif
    return nullptr;
}

GeoidKernel widest_geoid_kernel()
{
    static_assert(kKernelsAvx2 == 1 && kKernelsAvx512 == 2);
    for (long number = kernel_set; number > 0; --number)
        if (const GeoidKernel kernel = geoid_kernel(number))
            return kernel;
    return geoid_sums_baseline;
}
