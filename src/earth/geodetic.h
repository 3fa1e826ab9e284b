// Geodetic coordinates and Cartesian ones, both ways, with rates. Radians, metres, seconds; Earth-fixed axes.
#ifndef KL_SRC_EARTH_GEODETIC_H
#define KL_SRC_EARTH_GEODETIC_H

#include "earth/ellipsoid.h"
#include "earth/sphere.h"
#include "numbers/elementary.h"
#include "numbers/pack.h"

inline namespace KL_SET {

template <class T>
struct NorthEastUp {
    T n, e, u;
};

template <class T>
NorthEastUp<T> to_local(const LocalAxes<T> &x, T vx, T vy, T vz)
{
    const T outward = vx * x.cl + vy * x.sl;
    return {vz * x.c - outward * x.s, vy * x.cl - vx * x.sl, outward * x.c + vz * x.s};
}

template <class T>
void from_local(const LocalAxes<T> &x, const NorthEastUp<T> &v, T out[3])
{
    const T outward = v.u * x.c - v.n * x.s;
    out[0] = outward * x.cl - v.e * x.sl;
    out[1] = outward * x.sl + v.e * x.cl;
    out[2] = v.n * x.c + v.u * x.s;
}

template <class T>
void geodetic_to_cartesian(const Ellipsoid &e, const LocalAxes<T> &x, T height, T pos[3])
{
    const T N = curvature_radii(e, x.s).N;
    const T p = (N + height) * x.c;
    pos[0] = p * x.cl;
    pos[1] = p * x.sl;
    pos[2] = (e.k * e.k * N + height) * x.s;
}

// Rates in rad/s and m/s.
template <class T>
void geodetic_to_cartesian_rates(const Ellipsoid &e, const LocalAxes<T> &x, T height, T lat_rate, T lon_rate,
                                 T height_rate, T vel[3])
{
    const CurvatureRadii<T> r = curvature_radii(e, x.s);
    from_local(x, {(r.M + height) * lat_rate, (r.N + height) * x.c * lon_rate, height_rate}, vel);
}

template <class T>
struct GeodeticPoint {
    T lat, lon, h; // rad, m; longitude -pi to pi
    T p;           // m from the axis
    LocalAxes<T> axes;
};

// m; squares of less than 1e-154 vanish.
inline double distance_from_axis(double x, double y)
{
    constexpr double kScale = 0x1p600;
    const double p = std::sqrt(x * x + y * y);
    return p < 1e-140 ? std::sqrt((x * kScale) * (x * kScale) + (y * kScale) * (y * kScale)) / kScale : p;
}

// 1, or -1 below zero; of one number looked up, since a branch on half of all places is guessed wrong.
inline double side_of(double x)
{
    constexpr double kSides[2] = {1.0, -1.0};
    return kSides[x < 0.0];
}
template <int N>
Pack<N> side_of(Pack<N> x)
{
    return select(x < 0.0, Pack<N>(-1.0), Pack<N>(1.0));
}

template <class T>
GeodeticPoint<T> cartesian_to_geodetic(const Ellipsoid &e, const T pos[3])
{
    const T x = pos[0], y = pos[1], q = fabs(pos[2]);
    const T p2 = x * x + y * y;
    T p = sqrt(p2);
    const T r = sqrt(p2 + q * q);
    Foot<T> f = foot_from_afar(e, p, q, r);
    const auto rare = !((r >= kFarFromCentre) & (p > 1e-20 * (q + e.E)));
    if (any(rare))
        for (int i = 0; i < lanes_of<T>; ++i)
            if (lane(rare, i)) {
                set_lane(p, i, distance_from_axis(lane(x, i), lane(y, i)));
                const Foot<double> one = foot_anywhere(e, lane(p, i), lane(q, i));
                set_lane(f.sine, i, one.sine);
                set_lane(f.cosine, i, one.cosine);
                set_lane(f.height, i, one.height);
                set_lane(f.rise, i, one.rise);
                set_lane(f.run, i, one.run);
            }
    const T lat = arc_tangent(f.rise, f.run);
    const T half = side_of(pos[2]); // -1 in the south
    const auto off_axis = p > 0.0;
    const T divisor = select(off_axis, p, T(1.0));
    return {half * lat,
            select((x == 0.0) & (y == 0.0), T(0.0), arc_tangent(y, x)),
            f.height,
            p,
            {half * f.sine, f.cosine, select(off_axis, y / divisor, T(0.0)), select(off_axis, x / divisor, T(1.0))}};
}

template <class T>
struct GeodeticRates {
    T lat, lon, h; // rad/s, m/s
};

// On the axis the pole is being left along some meridian; a longitude has no rate there.
template <class T>
GeodeticRates<T> cartesian_to_geodetic_rates(const Ellipsoid &e, const GeodeticPoint<T> &at, const T vel[3])
{
    const NorthEastUp<T> v = to_local(at.axes, vel[0], vel[1], vel[2]);
    const T from_pole = sqrt(vel[0] * vel[0] + vel[1] * vel[1]);
    const auto axis = at.p == 0.0;
    const T north = select(axis, select(at.axes.s > 0.0, -from_pole, from_pole), v.n);
    const T radius = curvature_radii(e, at.axes.s).M + at.h;
    const auto flat = radius == 0.0; // the centre of curvature
    return {select(flat, T(0.0), north / select(flat, T(1.0), radius)),
            select(axis, T(0.0), v.e / select(axis, T(1.0), at.p)), v.u};
}

// ---- the same in degrees, as callers see them ----

// 0 to 360 of an angle of at most half a turn; never -0.0.
template <class T>
T positive_degrees(T angle)
{
    const T degrees = angle * KL_DEG_PER_RAD;
    const T turned = degrees + (180.0 - 180.0 * side_of(degrees));
    return select(turned >= 360.0, T(0.0), turned) + 0.0;
}

template <class T>
struct GeodeticDegrees {
    T lat, lon, h, lat_rate, lon_rate, h_rate; // deg, m, deg/s, m/s
};

template <class T>
void degrees_to_cartesian(const Ellipsoid &e, bool rates, const GeodeticDegrees<T> &in, T pos[3], T vel[3])
{
    const LocalAxes<T> axes = local_axes(in.lat, in.lon);
    geodetic_to_cartesian(e, axes, in.h, pos);
    if (rates)
        geodetic_to_cartesian_rates(e, axes, in.h, in.lat_rate * KL_RAD_PER_DEG, in.lon_rate * KL_RAD_PER_DEG,
                                    in.h_rate, vel);
}

// What a caller is warned of, by lane.
template <class T>
struct GeodeticFindings {
    mask_of<T> two_feet;     // two points of the ellipsoid are equally near, or latitude has no rate
    mask_of<T> no_longitude; // moving off the polar axis
};

template <class T>
GeodeticFindings<T> cartesian_to_degrees(const Ellipsoid &e, bool rates, const T pos[3], const T vel[3],
                                         GeodeticDegrees<T> *out)
{
    const GeodeticPoint<T> at = cartesian_to_geodetic(e, pos);
    *out = {at.lat * KL_DEG_PER_RAD + 0.0, positive_degrees(at.lon), at.h, T(0.0), T(0.0), T(0.0)};
    GeodeticFindings<T> found;
    found.two_feet = (pos[2] == 0.0) & (at.p < e.E);
    found.no_longitude = fabs(pos[0]) < 0.0; // nowhere
    if (!rates)
        return found;
    const GeodeticRates<T> r = cartesian_to_geodetic_rates(e, at, vel);
    const T lon_rate = r.lon * KL_DEG_PER_RAD;
    const auto unbounded = !(fabs(lon_rate) < 1e300); // a breadth of an atom off the axis, or less
    out->lat_rate = r.lat * KL_DEG_PER_RAD + 0.0;
    out->lon_rate = select(unbounded, T(0.0), lon_rate) + 0.0;
    out->h_rate = r.h + 0.0;
    found.two_feet |= curvature_radii(e, at.axes.s).M + at.h == 0.0;
    found.no_longitude = ((at.p == 0.0) & ((vel[0] != 0.0) | (vel[1] != 0.0))) | unbounded;
    return found;
}

} // namespace KL_SET

#endif
