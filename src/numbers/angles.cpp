// Degree trigonometry, angle reduction, and two small astronomical formulas.
#include "numbers/elementary.h"
#include "numbers/numbers.h"

#include <cmath>
#include <cstdint>
#include <cstdio>

double reduced_huge_degrees(double angle)
{
    if (!std::isfinite(angle))
        return NAN;
    // m * 2^k with integers; the powers of two from 2^3 on come back modulo 360 after 12.
    int exponent = 0;
    const double fraction = std::frexp(std::fabs(angle), &exponent);
    const auto m = static_cast<std::uint64_t>(fraction * 0x1p53);
    const int k = exponent - 53;
    const std::uint64_t power = std::uint64_t{1} << (k < 3 ? k : 3 + (k - 3) % 12);
    return (angle < 0.0 ? -1.0 : 1.0) * reduced_degrees(static_cast<double>(m % 360 * power % 360));
}

double KL_to_rad(double degrees)
{
    return degrees * KL_RAD_PER_DEG;
}

double KL_to_deg(double radians)
{
    return radians * KL_DEG_PER_RAD;
}

double KL_degsin(double degrees)
{
    return sine_cosine(KL_to_rad(degrees)).s;
}

double KL_degcos(double degrees)
{
    return sine_cosine(KL_to_rad(degrees)).c;
}

double KL_degasin(double x)
{
    if (x > 1.0 || x < -1.0) {
        std::fputs("ERROR in KL_degasin: arc-sine out of limits \n", stderr);
        x = x > 0.0 ? 1.0 : -1.0;
    }
    return KL_to_deg(arc_sine(x));
}

double KL_degacos(double x)
{
    if (x > 1.0 || x < -1.0) {
        std::fputs("ERROR in KL_degacos: arc-cosine out of limits \n", stderr);
        x = x > 0.0 ? 1.0 : -1.0;
    }
    return KL_to_deg(arc_cosine(x));
}

double KL_degatan2(double y, double x)
{
    return KL_to_deg(arc_tangent(y, x));
}

// On purpose: the tangent of a quotient of two angles, not a two-argument arc tangent.
double KL_degtan2(double a, double b)
{
    const SineCosine of = sine_cosine(KL_to_rad(a) / KL_to_rad(b));
    return of.s / of.c;
}

double KL_to_2pi(double angle)
{
    return reduced_to_2pi(angle);
}

double KL_to_pi(double angle)
{
    const double reduced = reduced_to_2pi(angle);
    return reduced >= KL_PI ? reduced - KL_TWO_PI : reduced;
}

double KL_to_180(double degrees)
{
    return KL_to_deg(KL_to_pi(KL_to_rad(degrees)));
}

double KL_to_360(double degrees)
{
    return KL_to_deg(KL_to_2pi(KL_to_rad(degrees)));
}

double KL_Get_Bessel(double t)
{
    return (t + 51544.0 - 51544.03) / 365.2422 + 2000.0;
}

// The conventional seasonal variation of the Bureau International de l'Heure, as IERS Bulletin A gives it.
double KL_Get_ut2_ut1(double t)
{
    const double angle = KL_TWO_PI * KL_Get_Bessel(t);
    double s[2];
    double c[2];
    sin_cos_any({angle, 2.0 * angle}, s, c);
    return 0.022 * s[0] - 0.012 * c[0] - 0.006 * s[1] + 0.007 * c[1];
}
