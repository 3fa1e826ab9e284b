#include "geometry/rays.h"

#include "numbers/numbers.h"

#include <algorithm>
#include <limits>

namespace {

constexpr double kFarthest = 1e75; // m: the fourth power of a length is a number
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

template <class T>
Foot<T> foot_of_any(const Ellipsoid &ellipsoid, const T &p, const T &q)
{
    const T r = sqrt(p * p + q * q);
    const auto far = (r >= kFarFromCentre) & (r < kFarthest);
    const auto rare = !far;
    const T stand_in = kFarFromCentre; // no division by zero in lanes that are not used
    Foot<T> foot =
        foot_from_afar(ellipsoid, select(far, p, stand_in), select(far, q, T(0.0)), select(far, r, stand_in));
    for (int i = 0; any(rare) && i < lanes_of<T>; ++i)
        if (lane(rare, i)) {
            const Foot<double> one = foot_anywhere(ellipsoid, lane(p, i), lane(q, i));
            set_lane(foot.sine, i, one.sine);
            set_lane(foot.cosine, i, one.cosine);
            set_lane(foot.height, i, one.height);
        }
    return foot;
}

template <class T>
PlaceOf<T> place_at(const Ellipsoid &ellipsoid, const Ray &ray, const T &t)
{
    PlaceOf<T> out = {};
    for (int i = 0; i < 3; ++i)
        out.point[i] = ray.pos[i] + t * ray.dir[i];
    const T x = out.point[0];
    const T y = out.point[1];
    const T z = out.point[2];
    const T p = sqrt(x * x + y * y);
    const Foot<T> foot = foot_of_any(ellipsoid, p, T(fabs(z)));
    const auto off_axis = p > 0.0;
    const T divisor = select(off_axis, p, T(1.0));
    out.s = copysign(foot.sine, z);
    out.c = foot.cosine;
    out.sl = select(off_axis, y / divisor, T(0.0));
    out.cl = select(off_axis, x / divisor, T(1.0));
    out.height = foot.height;
    const CurvatureRadii<T> radii = curvature_radii(ellipsoid, foot.sine);
    out.N = radii.N;
    out.M = radii.M;
    return out;
}

// Slope of the height along the ray, and its change per metre.
template <class T>
struct Slope {
    T d, dd;
};

template <class T>
Slope<T> slope_at(const PlaceOf<T> &at, const double dir[3])
{
    const T outward = dir[0] * at.cl + dir[1] * at.sl;
    const T up = outward * at.c + dir[2] * at.s;
    const T north = dir[2] * at.c - outward * at.s;
    const T east = dir[1] * at.cl - dir[0] * at.sl;
    return {up, north * north / (at.M + at.height) + east * east / (at.N + at.height)};
}

using Pair = Pack<2>; // the way down and the way up

// From t to where the parabola of the height is `height`, on its way down (side -1) or up (side 1); false where it
// stays above, then to its lowest point.
Mask<2> step_to_height(const Ellipsoid &ellipsoid, const Ray &ray, double height, Pair side, Pair *t)
{
    const PlaceOf<Pair> at = place_at(ellipsoid, ray, *t);
    const Slope<Pair> slope = slope_at(at, ray.dir);
    const Pair g = at.height - height;
    const Pair square = slope.d * slope.d - 2.0 * g * slope.dd;
    const Mask<2> reached = square >= 0.0;
    const Pair root = side * sqrt(select(reached, square, 0.0));
    const Pair by = select(side * slope.d >= 0.0, -2.0 * g / (slope.d + root), (root - slope.d) / slope.dd);
    *t = *t + select(reached, by, -slope.d / slope.dd);
    return reached;
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
    return place_at(ellipsoid, ray, t);
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
    const double sides[2] = {-1.0, 1.0};
    Pair at = load<Pair>(start);
    Mask<2> reached = {};
    for (int step = 0; step < kSteps; ++step)
        reached = step_to_height(ellipsoid, ray, height, load<Pair>(sides), &at);
    store(at, start);
    if (!all(reached) || !std::isfinite(start[0]) || !std::isfinite(start[1])) {
        t[0] = t[1] = kNone;
        return 0;
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
        if (slope.dd == 0.0)
            return false; // from so far away the ray has no bend
        const double by = slope.d / slope.dd;
        *t -= by;
        if (std::fabs(by) < kEnough)
            break;
    }
    *place = place_on(ellipsoid, ray, *t);
    return dot3(place->point, place->point) >= kCore * kCore;
}
