// Flat matrices, row by row.
#include "numbers/numbers.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

constexpr double kOrthonormality = 1e-6;

void copy3(const double *from, double *to)
{
    std::memcpy(to, from, 9 * sizeof(double));
}

} // namespace

void KL_add_mm(const double *a, const double *b, double *out)
{
    KL_add_vv(a, 9, b, out);
}

void KL_sub_mm(const double *a, const double *b, double *out)
{
    KL_sub_vv(a, 9, b, out);
}

void KL_mult_mm(const double *a, const double *b, double *out)
{
    double product[9]; // out may be a or b
    multiply(flat3(a), flat3(b), flat3(product), 3, 3, 3);
    copy3(product, out);
}

void KL_mult_mm2(const double *a, long n, long m, const double *b, long p, double *out)
{
    multiply(FlatMatrix<const double>{a, m}, FlatMatrix<const double>{b, p}, FlatMatrix<double>{out, p}, n, m, p);
}

void KL_mult_mv(const double *a, const double *v, double *out)
{
    const double copy[3] = {v[0], v[1], v[2]}; // out may be v
    multiply_vector(flat3(a), copy, out, 3, 3);
}

void KL_mult_mv2(const double *a, long n, long m, const double *v, double *out)
{
    multiply_vector(FlatMatrix<const double>{a, m}, v, out, n, m);
}

void KL_mult_vm(const double *v, const double *a, double *out)
{
    const double copy[3] = {v[0], v[1], v[2]}; // out may be v
    multiply_row(copy, flat3(a), out, 3, 3);
}

void KL_mult_em(const double *a, double *out, double s)
{
    KL_mult_ev(9, a, out, s);
}

void KL_copy_m(const double *a, double *out)
{
    KL_copy_v(a, 9, out);
}

void KL_transpose(const double *a, double *out)
{
    double copy[9]; // out may be a
    copy3(a, copy);
    KL_transpose2(copy, 3, 3, out);
}

void KL_transpose2(const double *a, long n, long m, double *out)
{
    for (long i = 0; i < n; ++i)
        for (long j = 0; j < m; ++j)
            out[j * n + i] = a[i * m + j];
}

double KL_det(const double *a)
{
    return determinant3(flat3(a));
}

void KL_identity(long n, long m, double *out)
{
    for (long i = 0; i < n; ++i)
        for (long j = 0; j < m; ++j)
            out[i * m + j] = i == j ? 1.0 : 0.0;
}

void KL_Vector_derivs(const double *m, const double *dm, const double *ddm, const double *v, double *out, double *dout,
                      double *ddout)
{
    double inverse[9];
    if (KL_inverse3(m, inverse) != 0)
        std::fill_n(inverse, 9, std::nan("")); // no status to say it with
    double x[3];
    double dx[3];
    double rhs[3];
    KL_mult_mv(inverse, v, x);
    KL_mult_mv(dm, x, rhs);
    KL_mult_mv(inverse, rhs, dx);
    KL_mult_ev(3, dx, dx, -1.0);
    double bent[3];
    KL_mult_mv(ddm, x, bent);
    KL_mult_mv(dm, dx, rhs);
    for (int i = 0; i < 3; ++i)
        rhs[i] = -bent[i] - 2.0 * rhs[i];
    KL_mult_mv(inverse, rhs, ddout);
    KL_copy_v(x, 3, out);
    KL_copy_v(dx, 3, dout);
}

long KL_Check_orthonormal(const double *a)
{
    for (int i = 0; i < 3; ++i)
        for (int j = i; j < 3; ++j) {
            const double wanted = i == j ? 1.0 : 0.0;
            if (!(std::fabs(dot(a + 3 * i, a + 3 * j, 3) - wanted) <= kOrthonormality)) // NaN is not orthonormal
                return 0;
        }
    return 1;
}
