#include "geometry/ellipses.h"

#include "earth/ellipsoid.h"
#include "numbers/elementary.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kQuarter = 1.57079632679489661923;

bool are_axes(double a, double b)
{
    return std::isfinite(a) && b > 0.0 && b <= a;
}

// ---- arcs of ellipses that are nearly circles: the series of geodesics ----

// C. F. F. Karney, J. Geodesy 87, 43 (2013), equations 17 and 18, to the sixth order in
// eps = (sqrt(1 + k2) - 1)/(sqrt(1 + k2) + 1), where k2 = (a/b)^2 - 1: what follows is below 1e-16 for b/a > 0.99.
double arc_by_series(double b, double k2, double angle)
{
    const double root = std::sqrt(1.0 + k2);
    const double eps = k2 / ((root + 1.0) * (root + 1.0));
    const double e2 = eps * eps;
    const double A1 = (1.0 + e2 * (1.0 / 4.0 + e2 * (1.0 / 64.0 + e2 / 256.0))) / (1.0 - eps);
    const double C[6] = {
        eps * (-1.0 / 2.0 + e2 * (3.0 / 16.0 - e2 / 32.0)),
        e2 * (-1.0 / 16.0 + e2 * (1.0 / 32.0 - e2 * 9.0 / 2048.0)),
        e2 * eps * (-1.0 / 48.0 + e2 * 3.0 / 256.0),
        e2 * e2 * (-5.0 / 512.0 + e2 * 3.0 / 512.0),
        e2 * e2 * eps * (-7.0 / 1280.0),
        e2 * e2 * e2 * (-7.0 / 2048.0),
    };
    // Clenshaw's sum of C[l-1] sin(2 l angle).
    const SineCosine twice = sine_cosine(2.0 * angle);
    double next = 0.0;
    double last = 0.0;
    for (int l = 5; l >= 0; --l) {
        const double here = 2.0 * twice.c * next - last + C[l];
        last = next;
        next = here;
    }
    return b * A1 * (angle + next * twice.s);
}

// ---- other arcs: Carlson's integrals ----

// R_F and R_D of (x, y, 1), B. C. Carlson, Numer. Algorithms 10, 13 (1995).
struct CarlsonIntegrals {
    double F, D;
};

CarlsonIntegrals carlson(double x, double y)
{
    double z = 1.0;
    double sum = 0.0;
    double weight = 1.0;
    for (int step = 0; step < 60; ++step) { // each takes three quarters off the differences
        const double sx = std::sqrt(x);
        const double sy = std::sqrt(y);
        const double sz = std::sqrt(z);
        const double lambda = sx * (sy + sz) + sy * sz;
        sum += weight / (sz * (z + lambda));
        weight *= 0.25;
        x = 0.25 * (x + lambda);
        y = 0.25 * (y + lambda);
        z = 0.25 * (z + lambda);
        const double mean = (x + y + 3.0 * z) / 5.0;
        const double spread = std::fmax(std::fabs(mean - x), std::fmax(std::fabs(mean - y), std::fabs(mean - z)));
        if (spread <= 1e-3 * mean)
            break;
    }
    CarlsonIntegrals out;
    {
        const double mean = (x + y + z) / 3.0;
        const double X = 1.0 - x / mean;
        const double Y = 1.0 - y / mean;
        const double Z = -X - Y;
        const double E2 = X * Y - Z * Z;
        const double E3 = X * Y * Z;
        out.F = (1.0 - E2 / 10.0 + E3 / 14.0 + E2 * E2 / 24.0 - 3.0 * E2 * E3 / 44.0 - 5.0 * E2 * E2 * E2 / 208.0
                 + 3.0 * E3 * E3 / 104.0 + E2 * E2 * E3 / 16.0)
                / std::sqrt(mean);
    }
    {
        const double mean = (x + y + 3.0 * z) / 5.0;
        const double X = 1.0 - x / mean;
        const double Y = 1.0 - y / mean;
        const double Z = -(X + Y) / 3.0;
        const double XY = X * Y;
        const double ZZ = Z * Z;
        const double E2 = XY - 6.0 * ZZ;
        const double E3 = (3.0 * XY - 8.0 * ZZ) * Z;
        const double E4 = 3.0 * (XY - ZZ) * ZZ;
        const double E5 = XY * ZZ * Z;
        out.D = 3.0 * sum
                + weight
                      * (1.0 - 3.0 * E2 / 14.0 + E3 / 6.0 + 9.0 * E2 * E2 / 88.0 - 3.0 * E4 / 22.0
                         - 9.0 * E2 * E3 / 52.0 + 3.0 * E5 / 26.0)
                      / (mean * std::sqrt(mean));
    }
    return out;
}

// From the end of the larger axis to an eccentric angle of 0 to a quarter: b times the integral of sqrt(1 + k2 sin^2).
double arc_by_integrals(double b, double k2, double angle)
{
    const SineCosine at = sine_cosine(angle);
    const double s2 = at.s * at.s;
    const CarlsonIntegrals R = carlson(at.c * at.c, 1.0 + k2 * s2);
    return b * at.s * (R.F + k2 * s2 * R.D / 3.0);
}

double arc_from_zero(double a, double b, double beta)
{
    // Still flatter ones are no shorter, to rounding.
    constexpr double kFlattest = 1e-100;
    const double ratio = std::fmax(b / a, kFlattest);
    b = ratio * a;
    const double k2 = (1.0 - ratio) * (1.0 + ratio) / (ratio * ratio);
    const double size = std::fabs(beta);
    if (ratio > 0.99)
        return std::copysign(arc_by_series(b, k2, size), beta);
    // Whole quadrants, and the way on or back from there.
    const double whole = arc_by_integrals(b, k2, kQuarter);
    const double quarters = std::floor(size / kQuarter);
    const bool forth = std::fmod(quarters, 2.0) == 0.0;
    const double rest = std::fmin(std::fmax(size - quarters * kQuarter, 0.0), kQuarter);
    const double arc = forth ? quarters * whole + arc_by_integrals(b, k2, rest)
                             : (quarters + 1.0) * whole - arc_by_integrals(b, k2, kQuarter - rest);
    return std::copysign(arc, beta);
}

} // namespace

bool nearest_on_ellipse(double a, double b, double x, double y, double foot[2], double *distance)
{
    if (!are_axes(a, b) || !std::isfinite(x) || !std::isfinite(y))
        return false;
    // In units of the larger axis. The foot is the same for all points of a direction from far away, and for all
    // ellipses that are as flat as a line.
    constexpr int kFar = 300;
    int size = 0;
    int distant = 0;
    const double unit = std::frexp(a, &size);
    std::frexp(std::fmax(std::fabs(x), std::fabs(y)), &distant);
    const int nearer = std::max(distant - size - kFar, 0);
    const Ellipsoid meridian = ellipsoid_of_axes(unit, std::fmax(std::ldexp(b, -size), 0x1p-300 * unit));
    const double p = std::ldexp(std::fabs(x), -size - nearer);
    const double q = std::ldexp(std::fabs(y), -size - nearer);
    const Foot<double> at = foot_anywhere(meridian, p, q);
    // Geodetic to reduced latitude: tan = k tan.
    const double rise = meridian.k * at.sine;
    const double length = std::sqrt(rise * rise + at.cosine * at.cosine);
    foot[0] = std::copysign(a * (at.cosine / length), x);
    foot[1] = std::copysign(b * (rise / length), y == 0.0 ? 1.0 : y);
    *distance = std::ldexp(nearer > 0 ? std::sqrt(p * p + q * q) : at.height, size + nearer);
    return true;
}

double arc_of_ellipse(double a, double b, double beta1, double beta2)
{
    if (!are_axes(a, b) || !std::isfinite(beta1) || !std::isfinite(beta2))
        return std::numeric_limits<double>::quiet_NaN();
    return arc_from_zero(a, b, beta2) - arc_from_zero(a, b, beta1);
}
