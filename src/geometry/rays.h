// A line of sight and the Earth: where it meets the ellipsoid, a geodetic height, and where it comes nearest.
// Positions in Earth-fixed axes, or any whose z is the Earth's axis; m along the unit direction from the position.
// T: a number, or a pack of numbers for many lines.
#ifndef KL_SRC_GEOMETRY_RAYS_H
#define KL_SRC_GEOMETRY_RAYS_H

#include "earth/ellipsoid.h"
#include "numbers/elementary.h"
#include "numbers/numbers.h"
#include "numbers/streams.h"

#include <cmath>
#include <limits>

// Heights that can be asked for.
constexpr double kLowestHeight = -1e5; // m
constexpr double kHighestHeight = 1e9;

// Squares of lengths whose products stay in the range, and a length below their roots.
constexpr double kLargeSquare = 0x1p800;
constexpr double kFar = 0x1p390; // m

constexpr double kNoPoint = std::numeric_limits<double>::quiet_NaN();

inline namespace KL_SET {

template <class T>
struct RayOf {
    T pos[3]; // m
    T dir[3]; // unit vector
};
using Ray = RayOf<double>;

// ---- the ellipsoid ----

// The quadratic in the space stretched by a/b along z, where the ellipsoid is a sphere of radius a. At the middle of
// the chord, m, nothing cancels: m stands at right angles to the ray. In units of the direction's length.
template <class T>
struct Chord {
    T middle; // along the ray
    T square; // of half its length; negative where the ray passes by
};

template <class T, class S>
Chord<T> chord_of(const T &a, const S &stretch, const T *pos, const T *dir)
{
    const T pz = pos[2] * stretch;
    const T wz = dir[2] * stretch;
    const T per_A = 1.0 / (dir[0] * dir[0] + dir[1] * dir[1] + wz * wz);
    const T middle = -(pos[0] * dir[0] + pos[1] * dir[1] + pz * wz) * per_A;
    const T mx = pos[0] + middle * dir[0];
    const T my = pos[1] + middle * dir[1];
    const T mz = pz + middle * wz;
    return {middle, (a * a - (mx * mx + my * my + mz * mz)) * per_A};
}

template <class T>
struct MeetingPoints {
    T t[2];                   // ascending; what is missing is kNoPoint
    mask_of<T> first, second; // is there one?
};

// `length` is that of the direction.
template <class T>
MeetingPoints<T> points_of(const Chord<T> &chord, const T &length)
{
    const T half = sqrt(chord.square) * length; // NaN where the ray passes by
    const T middle = chord.middle * length;
    const auto first = half >= 0.0;
    const auto second = half > 0.0;
    return {
        {select(first, T(middle - half), T(kNoPoint)), select(second, T(middle + half), T(kNoPoint))}, first, second};
}

// Are a line's vectors neither infinite nor so large or small that squares leave the range? Not where they are NaN.
template <class T>
mask_of<T> is_ordinary(const T *pos, const T *dir)
{
    const T square = dot3(dir, dir);
    return (square < kLargeSquare) & (square > 1.0 / kLargeSquare) & (dot3(pos, pos) < kLargeSquare);
}

// ---- the place above the ellipsoid ----

template <class T>
Foot<T> foot_of_any(const Ellipsoid &ellipsoid, const T &p, const T &q)
{
    constexpr double kFarthest = 1e75; // m: the fourth power of a length is a number
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

// R: a number where the ray is one, else T.
template <class T, class R>
PlaceOf<T> place_at(const Ellipsoid &ellipsoid, const RayOf<R> &ray, const T &t)
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

template <class T, class R>
Slope<T> slope_at(const PlaceOf<T> &at, const R *dir)
{
    const T outward = dir[0] * at.cl + dir[1] * at.sl;
    const T up = outward * at.c + dir[2] * at.s;
    const T north = dir[2] * at.c - outward * at.s;
    const T east = dir[1] * at.cl - dir[0] * at.sl;
    return {up, north * north / (at.M + at.height) + east * east / (at.N + at.height)};
}

// ---- a height ----

constexpr int kHeightSteps = 2;

// From t to where the parabola of the height is `height`, on its way down (side -1) or up (side 1); false where it
// stays above, then to its lowest point.
template <class T, class R>
mask_of<T> step_to_height(const Ellipsoid &ellipsoid, const RayOf<R> &ray, const R &height, const T &side, T *t)
{
    const PlaceOf<T> at = place_at(ellipsoid, ray, *t);
    const Slope<T> slope = slope_at(at, ray.dir);
    const T g = at.height - height;
    const T square = slope.d * slope.d - 2.0 * g * slope.dd;
    const auto reached = square >= 0.0;
    const T root = side * sqrt(select(reached, square, T(0.0)));
    const T by = select(side * slope.d >= 0.0, -2.0 * g / (slope.d + root), (root - slope.d) / slope.dd);
    *t = *t + select(reached, by, -slope.d / slope.dd);
    return reached;
}

// A surface of constant height is no ellipsoid: the one with both axes so much longer is up to 0.21 m off at 150 km. It
// gives the start; then Newton of second order on the height, whose slope and curvature are known.
template <class T>
Chord<T> chord_at_height(const Ellipsoid &ellipsoid, const RayOf<T> &ray, const T &height)
{
    const T a = ellipsoid.a + height;
    const T b = ellipsoid.b + height;
    return chord_of(a, T(1.0 / (b / a)), ray.pos, ray.dir);
}

// ---- the lowest point ----

// At the lowest point the normal n stands at right angles to the ray u. With q = e2 N sin(latitude), V = (N + h) n is
// the point moved by q along z, and so lies on the line w + q (z - u_z u), where w is the foot of the perpendicular
// from the centre to the ray: q is all that is unknown. Newton on q = e2 N(sin(latitude of V)), which is nearly
// constant; the last step is taken on V itself.
template <class T>
struct Perpendicular {
    T along;   // m from the foot to the position
    T w[3];    // m
    T side[3]; // z - u_z u
    T ww;
};

template <class T>
Perpendicular<T> perpendicular_of(const RayOf<T> &ray)
{
    const T *u = ray.dir;
    const T along = dot3(ray.pos, u);
    Perpendicular<T> out = {along,
                            {ray.pos[0] - along * u[0], ray.pos[1] - along * u[1], ray.pos[2] - along * u[2]},
                            {-u[2] * u[0], -u[2] * u[1], u[0] * u[0] + u[1] * u[1]},
                            T(0.0)};
    out.ww = dot3(out.w, out.w);
    return out;
}

// Closer to the centre the height has no single lowest point.
template <class T>
mask_of<T> has_lowest_point(const Perpendicular<T> &line)
{
    constexpr double kCore = 1e5; // m
    return (line.ww >= kCore * kCore) & (line.ww < HUGE_VAL);
}

template <class T>
T first_q(const Ellipsoid &ellipsoid, const Perpendicular<T> &line)
{
    const T start = line.w[2] / sqrt(line.ww);
    return ellipsoid.E * start * (1.0 + 0.5 * ellipsoid.e2 * start * start);
}

template <class T>
struct StepOfQ {
    T V[3], length, s, per_root;
    T missing, by;
};

template <class T>
StepOfQ<T> step_of_q(const Ellipsoid &ellipsoid, const Perpendicular<T> &line, const T &q)
{
    StepOfQ<T> out;
    for (int i = 0; i < 3; ++i)
        out.V[i] = line.w[i] + q * line.side[i];
    out.length = sqrt(dot3(out.V, out.V));
    out.s = out.V[2] / out.length;
    out.per_root = 1.0 / sqrt(1.0 - ellipsoid.e2 * out.s * out.s);
    out.missing = ellipsoid.E * out.s * out.per_root - q;
    const T slope =
        ellipsoid.E * (out.per_root * out.per_root * out.per_root) * (line.side[2] - out.s * out.s) / out.length;
    out.by = out.missing / (1.0 - slope);
    return out;
}

// Beyond 6000 km from the centre the next step would be of 1e-13 m.
template <class T>
mask_of<T> is_last(const StepOfQ<T> &step)
{
    constexpr double kEnough = 0.01; // m
    return !(fabs(step.by) >= kEnough);
}

template <class T>
struct LowestPointOf {
    T t; // m along the ray
    T point[3];
    T north[2], east[2]; // latitude and longitude as sides of a right angle: across, along
    T height;            // m
};
using LowestPoint = LowestPointOf<double>;

// `q` after the step.
template <class T>
void lowest_after(const Ellipsoid &ellipsoid, const RayOf<T> &ray, const Perpendicular<T> &line, const StepOfQ<T> &step,
                  const T &q, LowestPointOf<T> *out)
{
    T V[3];
    for (int i = 0; i < 3; ++i)
        V[i] = step.V[i] + step.by * line.side[i];
    out->height = (step.length - ellipsoid.a * step.per_root) + step.s * step.missing;
    out->north[0] = V[2];
    out->north[1] = sqrt(V[0] * V[0] + V[1] * V[1]);
    out->east[0] = V[1];
    out->east[1] = V[0];
    out->t = 0.0 - line.along - q * ray.dir[2];
    for (int i = 0; i < 3; ++i)
        out->point[i] = ray.pos[i] + out->t * ray.dir[i];
}

} // namespace KL_SET

// False when the position or the direction is not finite, or the direction has no length.
bool make_ray(const double pos[3], const double dir[3], Ray *ray);

// The number of points, 0 to 2, and where: ascending. t beyond the number is kNoPoint.
long ray_meets_height(const Ellipsoid &ellipsoid, const Ray &ray, double height, double t[2]);

// False for lines that come within 100 km of the centre of the Earth.
bool lowest_point(const Ellipsoid &ellipsoid, const Ray &ray, LowestPoint *out);

// As ray_meets_height for the ellipsoid with semi-axes a and a/stretch, from what a caller gives; -1 where make_ray is
// false.
long any_line_meets_axes(double a, double stretch, const double pos[3], const double dir[3], double t[2]);

// It with the common cases before a call: no component is asked whether it is finite, as the sums of all tell. Without
// a branch on whether there are points, which is guessed wrong where lines pass the limb.
inline long line_meets_axes(double a, double stretch, const double pos[3], const double dir[3], double t[2])
{
    using Pair = Pack<2>;
    const double square = dot3(dir, dir);
    const Chord<double> chord = chord_of(a, stretch, pos, dir);
    const double length = sqrt(square);
    const double half = sqrt(chord.square) * length; // never below 0, NaN where the ray passes by
    const double middle = chord.middle * length;
    if (!(square < kLargeSquare && square > 1.0 / kLargeSquare && fabs(middle) < kFar && a > 0.0 && a < kFar))
        return any_line_meets_axes(a, stretch, pos, dir, t);
    const Mask<2> there = Pair(half) > Pair(Pair::Vector{-1.0, 0.0});
    store(select(there, Pair(Pair::Vector{middle - half, middle + half}), Pair(kNoPoint)), t);
    const std::uint64_t bits = bits_of_lanes(there); // none, the first, or both
    return static_cast<long>(bits - (bits >> 1));
}

#endif
