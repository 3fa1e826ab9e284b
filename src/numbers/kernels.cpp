// The instruction set in use.
#include "numbers/kernels.h"

#include <cstdlib>
#include <cstring>

namespace {

KernelSet instruction_set = kKernelsBaseline; // also before any constructor runs

#if defined(__x86_64__)
__attribute__((constructor)) void choose_kernels()
{
    __builtin_cpu_init();
    KernelSet widest = __builtin_cpu_supports("avx512f") ? kKernelsAvx512
                       : __builtin_cpu_supports("avx2")  ? kKernelsAvx2
                                                         : kKernelsBaseline;
    if (const char *asked = std::getenv("KITLIB_KERNELS")) {
        if (std::strcmp(asked, "baseline") == 0)
            widest = kKernelsBaseline;
        else if (std::strcmp(asked, "avx2") == 0 && widest > kKernelsAvx2)
            widest = kKernelsAvx2;
    }
    instruction_set = widest;
}
#endif

} // namespace

const KernelSet &kernel_set = instruction_set;
