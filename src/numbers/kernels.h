// Kernels for several instruction sets and the choice between them.
//
//     KL_KERNEL(parabolas, (const double *x, double *y, long n)) // in a header
//     parabolas_kernel()(x, y, n);                               // in a door: that of this machine
//
// The file with the kernel is listed by kitlib_kernels() and says
//
//     namespace KL_KERNELS { void parabolas(const double *x, double *y, long n) { ... } }
//
// Records that cross are plain: no member functions, no constructors.
#ifndef KL_SRC_NUMBERS_KERNELS_H
#define KL_SRC_NUMBERS_KERNELS_H

// Elements that a kernel takes in one call: a few arrays of this length fit the first-level cache. A multiple of the
// lanes of every set.
constexpr long kBlock = 64;

enum KernelSet { kKernelsBaseline, kKernelsAvx2, kKernelsAvx512 };

// The widest set of this machine; the environment may ask for a narrower one: KITLIB_KERNELS=baseline, avx2 or avx512,
// read when the library is loaded. Results do not depend on it.
extern const KernelSet &kernel_set;

#if defined(__x86_64__)
#define KL_KERNEL(name, parameters)                                                                                    \
    namespace kernels_baseline {                                                                                       \
    void name parameters;                                                                                              \
    }                                                                                                                  \
    namespace kernels_avx2 {                                                                                           \
    void name parameters;                                                                                              \
    }                                                                                                                  \
    namespace kernels_avx512 {                                                                                         \
    void name parameters;                                                                                              \
    }                                                                                                                  \
    [[maybe_unused]] static inline auto name##_kernel()                                                                \
    {                                                                                                                  \
        return kernel_set == kKernelsAvx512 ? kernels_avx512::name                                                     \
               : kernel_set == kKernelsAvx2 ? kernels_avx2::name                                                       \
                                            : kernels_baseline::name;                                                  \
    }                                                                                                                  \
    static_assert(true)
#else
#define KL_KERNEL(name, parameters)                                                                                    \
    namespace kernels_baseline {                                                                                       \
    void name parameters;                                                                                              \
    }                                                                                                                  \
    [[maybe_unused]] static inline auto name##_kernel()                                                                \
    {                                                                                                                  \
        return kernels_baseline::name;                                                                                 \
    }                                                                                                                  \
    static_assert(true)
#endif

#endif
