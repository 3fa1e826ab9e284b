#include "earth/transverse_mercator.h"

#include "numbers/elementary.h"
#include "numbers/numbers.h"

#include <cmath>

namespace {

constexpr double kScale = 0.9996; // on the central meridian
constexpr double kFalseEasting = 500000.0;
constexpr double kFalseNorthing = 1.0e7;

struct Plane {
    double x, y; // rad: along the central meridian, and eastwards
};

// Sum over j = 1..6 of c[j-1] sin(2 j (x + i y)): Clenshaw over the complex sines.
Plane complex_sine_series(const double (&c)[6], const Plane &at)
{
    const SineCosine<double> x = sine_cosine(2.0 * at.x);
    const double sh = hyperbolic_sine(2.0 * at.y);
    const double ch = hyperbolic_cosine(2.0 * at.y);
    // 2 cos 2z
    const double re = 2.0 * x.c * ch;
    const double im = -2.0 * x.s * sh;
    Plane above = {0.0, 0.0};
    Plane here = {0.0, 0.0};
    for (int j = 5; j >= 0; --j) {
        const Plane next = {re * here.x - im * here.y - above.x + c[j], re * here.y + im * here.x - above.y};
        above = here;
        here = next;
    }
    // times sin 2z
    const double s_re = x.s * ch;
    const double s_im = x.c * sh;
    return {s_re * here.x - s_im * here.y, s_re * here.y + s_im * here.x};
}

// Tangent of the conformal latitude.
double conformal(double e, double t)
{
    const double w = std::sqrt(1.0 + t * t);
    const double S = hyperbolic_sine(e * arc_hyperbolic_tangent(e * t / w));
    return t * std::sqrt(1.0 + S * S) - S * w;
}

} // namespace

GridSeries grid_series(const Ellipsoid &ellipsoid)
{
    const double n = ellipsoid.f / (2.0 - ellipsoid.f);
    const double n2 = n * n, n3 = n2 * n, n4 = n2 * n2, n5 = n4 * n, n6 = n3 * n3;
    GridSeries g;
    g.e = std::sqrt(ellipsoid.e2);
    g.radius = kScale * (ellipsoid.a / (1.0 + n)) * (1.0 + n2 / 4.0 + n4 / 64.0 + n6 / 256.0);
    // equation 35
    g.alpha[0] =
        n / 2.0 - 2.0 * n2 / 3.0 + 5.0 * n3 / 16.0 + 41.0 * n4 / 180.0 - 127.0 * n5 / 288.0 + 7891.0 * n6 / 37800.0;
    g.alpha[1] =
        13.0 * n2 / 48.0 - 3.0 * n3 / 5.0 + 557.0 * n4 / 1440.0 + 281.0 * n5 / 630.0 - 1983433.0 * n6 / 1935360.0;
    g.alpha[2] = 61.0 * n3 / 240.0 - 103.0 * n4 / 140.0 + 15061.0 * n5 / 26880.0 + 167603.0 * n6 / 181440.0;
    g.alpha[3] = 49561.0 * n4 / 161280.0 - 179.0 * n5 / 168.0 + 6601661.0 * n6 / 7257600.0;
    g.alpha[4] = 34729.0 * n5 / 80640.0 - 3418889.0 * n6 / 1995840.0;
    g.alpha[5] = 212378941.0 * n6 / 319334400.0;
    // equation 36
    g.beta[0] = n / 2.0 - 2.0 * n2 / 3.0 + 37.0 * n3 / 96.0 - n4 / 360.0 - 81.0 * n5 / 512.0 + 96199.0 * n6 / 604800.0;
    g.beta[1] = n2 / 48.0 + n3 / 15.0 - 437.0 * n4 / 1440.0 + 46.0 * n5 / 105.0 - 1118711.0 * n6 / 3870720.0;
    g.beta[2] = 17.0 * n3 / 480.0 - 37.0 * n4 / 840.0 - 209.0 * n5 / 4480.0 + 5569.0 * n6 / 90720.0;
    g.beta[3] = 4397.0 * n4 / 161280.0 - 11.0 * n5 / 504.0 - 830251.0 * n6 / 7257600.0;
    g.beta[4] = 4583.0 * n5 / 161280.0 - 108847.0 * n6 / 3991680.0;
    g.beta[5] = 20648693.0 * n6 / 638668800.0;
    return g;
}

long zone_of(double lon_deg)
{
    const double lon = lon_deg < -180.0 ? lon_deg + 360.0 : lon_deg < 180.0 ? lon_deg : lon_deg - 360.0;
    return (static_cast<long>(std::floor(lon)) + 180) / 6 + 1;
}

double from_meridian(double lon_deg, long zone)
{
    return reduced_degrees(lon_deg - (6.0 * static_cast<double>(zone) - 183.0));
}

GridPoint geodetic_to_grid(const GridSeries &g, double lat_deg, double from_meridian_deg, bool north)
{
    double s[2], c[2];
    sin_cos_degrees({lat_deg, from_meridian_deg}, s, c);
    const double t = conformal(g.e, s[0] / c[0]);
    const double across = std::sqrt(t * t + c[1] * c[1]);
    const Plane sphere = {arc_tangent(t, c[1]), arc_hyperbolic_sine(s[1] / across)};
    const Plane sum = complex_sine_series(g.alpha, sphere);
    return {kFalseEasting + g.radius * (sphere.y + sum.y),
            g.radius * (sphere.x + sum.x) + (north ? 0.0 : kFalseNorthing)};
}

GridPlace grid_to_geodetic(const GridSeries &g, const GridPoint &point, bool north)
{
    const Plane grid = {(point.northing - (north ? 0.0 : kFalseNorthing)) / g.radius,
                        (point.easting - kFalseEasting) / g.radius};
    const Plane sum = complex_sine_series(g.beta, grid);
    const Plane sphere = {grid.x - sum.x, grid.y - sum.y};
    const SineCosine<double> x = sine_cosine(sphere.x);
    const double sh = hyperbolic_sine(sphere.y);
    const double wanted = x.s / std::sqrt(sh * sh + x.c * x.c);
    // Newton for the geographic tangent: equations 19 to 21.
    const double flat = (1.0 - g.e) * (1.0 + g.e);
    double t = wanted / flat;
    for (int i = 0; i < 5; ++i) {
        const double got = conformal(g.e, t);
        const double step =
            (wanted - got) / std::sqrt(1.0 + got * got) * (1.0 + flat * t * t) / (flat * std::sqrt(1.0 + t * t));
        t += step;
        if (std::fabs(step) < 1e-9 * (1.0 + std::fabs(t)))
            break;
    }
    return {arc_tangent(t, 1.0) * KL_DEG_PER_RAD, arc_tangent(sh, x.c) * KL_DEG_PER_RAD};
}
