// Complex arithmetic, by value. Division and modulus scale by the larger component.
#include "numbers/numbers.h"

#include <algorithm>
#include <cmath>

kl_complex KL_Complex(double re, double im)
{
    return {re, im};
}

kl_complex KL_Cadd(kl_complex a, kl_complex b)
{
    return {a.re + b.re, a.im + b.im};
}

kl_complex KL_Csub(kl_complex a, kl_complex b)
{
    return {a.re - b.re, a.im - b.im};
}

kl_complex KL_Cmul(kl_complex a, kl_complex b)
{
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}

kl_complex KL_Cdiv(kl_complex a, kl_complex b)
{
    if (std::fabs(b.re) >= std::fabs(b.im)) {
        const double ratio = b.im / b.re;
        const double size = b.re + ratio * b.im;
        return {(a.re + ratio * a.im) / size, (a.im - ratio * a.re) / size};
    }
    const double ratio = b.re / b.im;
    const double size = b.im + ratio * b.re;
    return {(a.re * ratio + a.im) / size, (a.im * ratio - a.re) / size};
}

kl_complex KL_Conjg(kl_complex a)
{
    return {a.re, -a.im};
}

double KL_Cabs(kl_complex a)
{
    const double large = std::max(std::fabs(a.re), std::fabs(a.im));
    const double small = std::min(std::fabs(a.re), std::fabs(a.im));
    if (small == 0.0)
        return large;
    const double ratio = small / large;
    return large * std::sqrt(1.0 + ratio * ratio);
}

kl_complex KL_Csqrt(kl_complex a)
{
    const double x = std::fabs(a.re);
    const double y = std::fabs(a.im);
    if (x == 0.0 && y == 0.0)
        return {0.0, 0.0};
    double w = 0.0;
    if (x >= y) {
        const double ratio = y / x;
        w = std::sqrt(x) * std::sqrt(0.5 * (1.0 + std::sqrt(1.0 + ratio * ratio)));
    } else {
        const double ratio = x / y;
        w = std::sqrt(y) * std::sqrt(0.5 * (ratio + std::sqrt(1.0 + ratio * ratio)));
    }
    if (a.re >= 0.0)
        return {w, a.im / (2.0 * w)};
    const double im = a.im >= 0.0 ? w : -w;
    return {a.im / (2.0 * im), im};
}

kl_complex KL_RCmul(double s, kl_complex a)
{
    return {s * a.re, s * a.im};
}
