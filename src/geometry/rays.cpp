#include "geometry/rays.h"

#include "numbers/numbers.h"

#include <algorithm>
#include <limits>

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

// Slope of the height along the ray, and its change per metre.
struct Slope {
    double d, dd;
};

Slope slope_at(const Place &at, const double dir[3])
{
    const double outward = dir[0] * at.cl + dir[1] * at.sl;
    const double up = outward * at.c + dir[2] * at.s;
    const double north = dir[2] * at.c - outward * at.s;
    const double east = dir[1] * at.cl - dir[0] * at.sl;
    return {up, north * north / (at.M + at.height) + east * east / (at.N + at.height)};
}

// From t to where the parabola of the height is `height`, on its way down (side -1) or up (side 1); false where it
// stays above, then to its lowest point.
bool step_to_height(const Ellipsoid &ellipsoid, const Ray &ray, double height, double side, double *t)
{
    const Place at = place_on(ellipsoid, ray, *t);
    const Slope slope = slope_at(at, ray.dir);
    const double g = at.height - height;
    const double square = slope.d * slope.d - 2.0 * g * slope.dd;
    if (!(square >= 0.0)) {
        *t -= slope.d / slope.dd;
        return false;
    }
    const double root = std::sqrt(square);
    *t += side * slope.d >= 0.0 ? -2.0 * g / (slope.d + side * root) : (side * root - slope.d) / slope.dd;
    return true;
}

} // namespace

bool make_ray(const double pos[3], const double dir[3], Ray *ray)
{
    double largest = 0.0;
    for (int i = 0; i < 3; ++i) {
        if (!std::isfinite(pos[i]) || !std::isfinite(dir[i]))
            return false;
        largest = std::max(largest, std::fabs(dir[i]));
    }
    if (largest == 0.0)
        return false;
    // By a power of two, so that no square leaves the range.
    int exponent = 0;
    if (largest > 0x1p400 || largest < 0x1p-400)
        std::frexp(largest, &exponent);
    for (int i = 0; i < 3; ++i) {
        ray->pos[i] = pos[i];
        ray->dir[i] = exponent == 0 ? dir[i] : std::ldexp(dir[i], -exponent);
    }
    const double length = std::sqrt(dot3(ray->dir, ray->dir));
    for (double &component : ray->dir)
        component /= length;
    return true;
}

long ray_meets_axes(double a, double k, const Ray &ray, double t[2])
{
    const Chord<double> chord = chord_of(a, k, ray.pos, ray.dir);
    t[0] = t[1] = kNone;
    if (!(chord.square >= 0.0))
        return 0;
    const double half = std::sqrt(chord.square);
    t[0] = chord.middle - half;
    if (half == 0.0)
        return 1;
    t[1] = chord.middle + half;
    return 2;
}

Place place_on(const Ellipsoid &ellipsoid, const Ray &ray, double t)
{
    Place out = {};
    for (int i = 0; i < 3; ++i)
        out.point[i] = ray.pos[i] + t * ray.dir[i];
    const double x = out.point[0];
    const double y = out.point[1];
    const double z = out.point[2];
    const double p = std::sqrt(x * x + y * y);
    const Foot<double> foot = foot_of(ellipsoid, p, std::fabs(z));
    out.s = std::copysign(foot.sine, z);
    out.c = foot.cosine;
    out.sl = p > 0.0 ? y / p : 0.0;
    out.cl = p > 0.0 ? x / p : 1.0;
    out.height = foot.height;
    const CurvatureRadii<double> radii = curvature_radii(ellipsoid, foot.sine);
    out.N = radii.N;
    out.M = radii.M;
    return out;
}

// A surface of constant height is no ellipsoid: the one with both axes so much longer is up to 0.21 m off at 150 km. It
// gives the start; then Newton of second order on the height, whose slope and curvature are known.
long ray_meets_height(const Ellipsoid &ellipsoid, const Ray &ray, double height, double t[2])
{
    constexpr int kSteps = 2;
    const double a = ellipsoid.a + height;
    const double b = ellipsoid.b + height;
    double start[2];
    if (ray_meets_axes(a, b / a, ray, start) == 0) { // a grazing ray may reach it all the same
        Place lowest;
        if (!lowest_point(ellipsoid, ray, &start[0], &lowest)) {
            t[0] = t[1] = kNone;
            return 0;
        }
        start[1] = start[0];
    } else if (std::isnan(start[1])) {
        start[1] = start[0];
    }
    for (int i = 0; i < 2; ++i) {
        bool reached = false;
        for (int step = 0; step < kSteps; ++step)
            reached = step_to_height(ellipsoid, ray, height, i == 0 ? -1.0 : 1.0, &start[i]);
        if (!reached || !std::isfinite(start[i])) {
            t[0] = t[1] = kNone;
            return 0;
        }
    }
    t[0] = start[0];
    t[1] = start[1];
    if (!(t[0] < t[1])) {
        t[1] = kNone;
        return 1;
    }
    return 2;
}

bool lowest_point(const Ellipsoid &ellipsoid, const Ray &ray, double *t, Place *place)
{
    constexpr double kCore = 1e5;   // m: closer to the centre the height has no single lowest point
    constexpr double kEnough = 0.5; // m along the ray: the next step would be of 1e-9 m
    constexpr int kLimit = 20;      // four are the most seen
    *t = chord_of(ellipsoid.a, ellipsoid.k, ray.pos, ray.dir).middle;
    for (int step = 0; step < kLimit; ++step) {
        *place = place_on(ellipsoid, ray, *t);
        if (!(dot3(place->point, place->point) >= kCore * kCore))
            return false;
        const Slope slope = slope_at(*place, ray.dir);
        const double by = slope.d / slope.dd;
        *t -= by;
        if (std::fabs(by) < kEnough)
            break;
    }
    *place = place_on(ellipsoid, ray, *t);
    return dot3(place->point, place->point) >= kCore * kCore;
}
