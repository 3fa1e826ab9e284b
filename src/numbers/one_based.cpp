// Vectors and matrices indexed from 1, or from any lower bound.
//
// A vector keeps one element of its own in front of the first, so that the returned pointer, shifted by the lower
// bound, never leaves its block for the usual bounds 0 and 1.
#include "numbers/numbers.h"

#include <cstdint>
#include <cstdlib>
#include <initializer_list>

namespace {

constexpr long kFront = 1;

// Shifts without forming a pointer outside of any object: lower bounds may be any number.
template <typename T>
T *shifted(T *p, long elements)
{
    return reinterpret_cast<T *>(reinterpret_cast<std::uintptr_t>(p)
                                 + static_cast<std::uintptr_t>(elements) * sizeof(T));
}

template <typename T>
T *allocate(long lo, long hi)
{
    if (hi < lo)
        return nullptr;
    unsigned long n = static_cast<unsigned long>(hi) - static_cast<unsigned long>(lo) + 1UL;
    if (n > PTRDIFF_MAX / sizeof(T) - kFront)
        return nullptr;
    T *block = static_cast<T *>(std::calloc(n + kFront, sizeof(T)));
    return block != nullptr ? shifted(block, kFront - lo) : nullptr;
}

template <typename T>
void release(T *p, long lo)
{
    if (p != nullptr)
        std::free(shifted(p, lo - kFront));
}

OneBasedMatrix view(double *const *m)
{
    return {m};
}

} // namespace

double *KL_dvector(long lo, long hi)
{
    return allocate<double>(lo, hi);
}

double *KL_double_vector(long n)
{
    return allocate<double>(1, n);
}

void KL_free_dvector(double *v, long lo)
{
    release(v, lo);
}

void KL_free_double_vector(double *v)
{
    release(v, 1);
}

int32_t *KL_ivector(long lo, long hi)
{
    return allocate<std::int32_t>(lo, hi);
}

void KL_free_ivector(int32_t *v, long lo)
{
    release(v, lo);
}

double **KL_dmatrix(long rlo, long rhi, long clo, long chi)
{
    if (rhi < rlo || chi < clo)
        return nullptr;
    const unsigned long rows = static_cast<unsigned long>(rhi) - static_cast<unsigned long>(rlo) + 1UL;
    const unsigned long columns = static_cast<unsigned long>(chi) - static_cast<unsigned long>(clo) + 1UL;
    if (columns > PTRDIFF_MAX / sizeof(double) / rows - 1)
        return nullptr;
    double **matrix = allocate<double *>(rlo, rhi);
    if (matrix == nullptr)
        return nullptr;
    double *block = static_cast<double *>(std::calloc(rows * columns + kFront, sizeof(double)));
    if (block == nullptr) {
        release(matrix, rlo);
        return nullptr;
    }
    for (unsigned long i = 0; i < rows; ++i)
        matrix[rlo + static_cast<long>(i)] = shifted(block, kFront + static_cast<long>(i * columns) - clo);
    return matrix;
}

double **KL_double_matrix(long n, long m)
{
    return KL_dmatrix(1, n, 1, m);
}

void KL_free_dmatrix(double **m, long rlo, long clo)
{
    if (m == nullptr)
        return;
    release(m[rlo], clo);
    release(m, rlo);
}

void KL_free_double_matrix(double **m)
{
    KL_free_dmatrix(m, 1, 1);
}

// ---- vectors ----

void KL_dvadd(const double *a, long n, const double *b, double *out)
{
    KL_add_vv(a + 1, n, b + 1, out + 1);
}

void KL_dvsub(const double *a, long n, const double *b, double *out)
{
    KL_sub_vv(a + 1, n, b + 1, out + 1);
}

void KL_dvsmy(const double *a, long n, double *out, double s)
{
    KL_mult_ev(n, a + 1, out + 1, s);
}

void KL_dvcopy(const double *a, long n, double *out)
{
    KL_copy_v(a + 1, n, out + 1);
}

double KL_dvdot(const double *a, long n, const double *b)
{
    return dot(a + 1, b + 1, n);
}

double KL_dvmag(const double *a, long n)
{
    return KL_modulus(a + 1, n);
}

double KL_dvnorm(double *a, long n)
{
    return normalise(a + 1, n);
}

void KL_threedim_dvmult(const double *a, const double *b, double *out)
{
    cross(a + 1, b + 1, out + 1);
}

// ---- matrices ----

void KL_dmmult(double *const *a, long n, long m, double *const *b, long p, double **out)
{
    multiply(view(a), view(b), view(out), n, m, p);
}

void KL_dmvmult(double *const *a, long n, long m, const double *v, double *out)
{
    multiply_vector(view(a), v + 1, out + 1, n, m);
}

void KL_dvmmult(const double *v, long n, double *const *a, long m, double *out)
{
    multiply_row(v + 1, view(a), out + 1, n, m);
}

void KL_dmadd(double *const *a, long n, long m, double *const *b, double **out)
{
    element_wise(view(a), view(b), view(out), n, m, [](double x, double y) { return x + y; });
}

void KL_dmsub(double *const *a, long n, long m, double *const *b, double **out)
{
    element_wise(view(a), view(b), view(out), n, m, [](double x, double y) { return x - y; });
}

void KL_dmsmy(double *const *a, long n, long m, double **out, double s)
{
    element_wise(view(a), view(a), view(out), n, m, [s](double x, double) { return s * x; });
}

void KL_dmtranspose(double *const *a, long n, long m, double **out)
{
    for (long i = 1; i <= n; ++i)
        for (long j = 1; j <= m; ++j)
            out[j][i] = a[i][j];
}

void KL_dmcopy(double *const *a, long n, long m, double **out)
{
    element_wise(view(a), view(a), view(out), n, m, [](double x, double) { return x; });
}

double KL_dm_det(double *const *a)
{
    return determinant3(view(a));
}

// ---- a vector with its derivatives ----

long KL_Alloc_vec_der(kl_vec_der *block)
{
    block->value = KL_double_vector(3);
    block->first = KL_double_vector(3);
    block->second = KL_double_vector(3);
    return block->value != nullptr && block->first != nullptr && block->second != nullptr ? 0 : -1;
}

void KL_Free_vec_der(kl_vec_der *block)
{
    for (double **v : {&block->value, &block->first, &block->second}) {
        KL_free_double_vector(*v);
        *v = nullptr;
    }
}
