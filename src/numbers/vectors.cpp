// Flat vectors.
#include "numbers/numbers.h"

#include <cstring>

void KL_add_vv(const double *a, long n, const double *b, double *out)
{
    for (long i = 0; i < n; ++i)
        out[i] = a[i] + b[i];
}

void KL_sub_vv(const double *a, long n, const double *b, double *out)
{
    for (long i = 0; i < n; ++i)
        out[i] = a[i] - b[i];
}

void KL_mult_ev(long n, const double *a, double *out, double s)
{
    for (long i = 0; i < n; ++i)
        out[i] = s * a[i];
}

double KL_mult_vv(const double *a, long n, const double *b)
{
    return dot(a, b, n);
}

void KL_mult3_vv(const double *a, const double *b, double *out)
{
    cross(a, b, out);
}

void KL_copy_v(const double *a, long n, double *out)
{
    if (n > 0)
        std::memmove(out, a, static_cast<std::size_t>(n) * sizeof(double));
}

double KL_modulus(const double *a, long n)
{
    return length_or_square(dot(a, a, n));
}

double KL_norm(double *a, long n)
{
    return normalise(a, n);
}

void KL_Unit_Vector_Deriv(const double *a, const double *da, double *out)
{
    const double length = std::sqrt(dot3(a, a)); // without the rule for small values
    double u[3];
    KL_mult_ev(3, a, u, 1.0 / length);
    const double along = dot(u, da, 3);
    for (int i = 0; i < 3; ++i)
        out[i] = (da[i] - along * u[i]) / length;
}
