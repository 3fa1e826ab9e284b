#include "geometry/rays.h"

#include "numbers/numbers.h"

#include <algorithm>
#include <limits>

namespace {

constexpr double kFarthest = 1e75; // m: the fourth power of a length is a number

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

// What a point above the ellipsoid knows of its place.
template <class T>
struct PlaceOf {
    T s, c, sl, cl; // of latitude and longitude
    T height;       // m
    T N, M;         // radii of curvature, m
};

template <class T>
PlaceOf<T> place_at(const Ellipsoid &ellipsoid, const Ray &ray, const T &t)
{
    PlaceOf<T> out;
    const T x = ray.pos[0] + t * ray.dir[0];
    const T y = ray.pos[1] + t * ray.dir[1];
    const T z = ray.pos[2] + t * ray.dir[2];
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

namespace {

// `length` is that of the direction.
long points_of(const Chord<double> &chord, double length, double t[2])
{
    const double half = std::sqrt(chord.square) * length; // NaN where the ray passes by
    const double middle = chord.middle * length;
    t[0] = select(half >= 0.0, middle - half, kNoPoint);
    t[1] = select(half > 0.0, middle + half, kNoPoint);
    return (half >= 0.0) + (half > 0.0);
}

} // namespace

long any_line_meets_axes(double a, double stretch, const double pos[3], const double dir[3], double t[2])
{
    const double square = dot3(dir, dir);
    // Neither not finite nor so large or small that squares leave the range: no need to ask each component.
    if (square < kLargeSquare && square > 1.0 / kLargeSquare && dot3(pos, pos) < kLargeSquare)
        return points_of(chord_of(a, stretch, pos, dir), std::sqrt(square), t);
    Ray ray;
    return make_ray(pos, dir, &ray) ? points_of(chord_of(a, stretch, ray.pos, ray.dir), 1.0, t) : -1;
}

// A surface of constant height is no ellipsoid: the one with both axes so much longer is up to 0.21 m off at 150 km. It
// gives the start; then Newton of second order on the height, whose slope and curvature are known.
long ray_meets_height(const Ellipsoid &ellipsoid, const Ray &ray, double height, double t[2])
{
    constexpr int kSteps = 2;
    const double a = ellipsoid.a + height;
    const double b = ellipsoid.b + height;
    double start[2];
    const Chord<double> chord = chord_of(a, 1.0 / (b / a), ray.pos, ray.dir);
    if (points_of(chord, 1.0, start) == 0) { // a grazing ray may reach it all the same
        LowestPoint lowest;
        if (!lowest_point(ellipsoid, ray, &lowest)) {
            t[0] = t[1] = kNoPoint;
            return 0;
        }
        start[0] = start[1] = lowest.t;
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
        t[0] = t[1] = kNoPoint;
        return 0;
    }
    t[0] = start[0];
    t[1] = start[1];
    if (!(t[0] < t[1])) {
        t[1] = kNoPoint;
        return 1;
    }
    return 2;
}

// At the lowest point the normal n stands at right angles to the ray u. With q = e2 N sin(latitude), V = (N + h) n is
// the point moved by q along z, and so lies on the line w + q (z - u_z u), where w is the foot of the perpendicular
// from the centre to the ray: q is all that is unknown. Newton on q = e2 N(sin(latitude of V)), which is nearly
// constant; the last step is taken on V itself.
bool lowest_point(const Ellipsoid &ellipsoid, const Ray &ray, LowestPoint *out)
{
    constexpr double kCore = 1e5;    // m: closer to the centre the height has no single lowest point
    constexpr double kEnough = 0.01; // m: beyond 6000 km from the centre the next step would be of 1e-13 m
    constexpr int kLimit = 40;       // two are usual
    const double *u = ray.dir;
    const double along = dot3(ray.pos, u);
    const double w[3] = {ray.pos[0] - along * u[0], ray.pos[1] - along * u[1], ray.pos[2] - along * u[2]};
    const double ww = dot3(w, w);
    if (!(ww >= kCore * kCore && ww < HUGE_VAL))
        return false;
    const double side[3] = {-u[2] * u[0], -u[2] * u[1], u[0] * u[0] + u[1] * u[1]}; // z - u_z u
    const double start = w[2] / std::sqrt(ww);
    double q = ellipsoid.E * start * (1.0 + 0.5 * ellipsoid.e2 * start * start);
    for (int step = 0; step < kLimit; ++step) {
        double V[3] = {w[0] + q * side[0], w[1] + q * side[1], w[2] + q * side[2]};
        const double length = std::sqrt(dot3(V, V));
        const double s = V[2] / length;
        const double per_root = 1.0 / std::sqrt(1.0 - ellipsoid.e2 * s * s);
        const double missing = ellipsoid.E * s * per_root - q;
        const double slope = ellipsoid.E * (per_root * per_root * per_root) * (side[2] - s * s) / length;
        const double by = missing / (1.0 - slope);
        q += by;
        if (!(std::fabs(by) >= kEnough) || step == kLimit - 1) {
            for (int i = 0; i < 3; ++i)
                V[i] += by * side[i];
            out->height = (length - ellipsoid.a * per_root) + s * missing;
            out->north[0] = V[2];
            out->north[1] = std::sqrt(V[0] * V[0] + V[1] * V[1]);
            out->east[0] = V[1];
            out->east[1] = V[0];
            break;
        }
    }
    out->t = 0.0 - along - q * u[2];
    for (int i = 0; i < 3; ++i)
        out->point[i] = ray.pos[i] + out->t * u[i];
    return true;
}
