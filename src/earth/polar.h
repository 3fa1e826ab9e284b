// Polar coordinates of a vector: right ascension and declination, azimuth and elevation. Radians, metres, seconds.
#ifndef KL_SRC_EARTH_POLAR_H
#define KL_SRC_EARTH_POLAR_H

#include "earth/sphere.h"
#include "numbers/elementary.h"
#include "numbers/pack.h"

inline namespace KL_SET {

template <class T>
struct Polar {
    T lon, lat, distance; // rad, -pi to pi; rad; m
};

// The vector's lengths, which its rates need too.
template <class T>
struct PolarLengths {
    T q, d; // in the plane of the first two axes, and whole
};

template <class T>
PolarLengths<T> polar_lengths(const T v[3])
{
    const T q2 = v[0] * v[0] + v[1] * v[1];
    return {sqrt(q2), sqrt(q2 + v[2] * v[2])};
}

// For vectors whose squares are neither huge nor tiny. On the axis the longitude is 0.
template <class T>
Polar<T> to_polar(const T v[3], const PolarLengths<T> &l)
{
    const auto axis = l.q == 0.0;
    return {select(axis, T(0.0), arc_tangent(v[1], v[0])), arc_tangent(v[2], l.q), l.d};
}

// On the axis the two angles have no rates: 0.
template <class T>
Polar<T> to_polar_rates(const T v[3], const PolarLengths<T> &l, const T w[3])
{
    const auto axis = l.q == 0.0;
    const T q = select(axis, T(1.0), l.q);
    const T d = select(l.d == 0.0, T(1.0), l.d);
    // Unit vector in the plane, and the rates along and across it.
    const T ux = v[0] / q;
    const T uy = v[1] / q;
    const T outward = ux * w[0] + uy * w[1];
    const T across = ux * w[1] - uy * w[0];
    const T cl = l.q / d;
    const T sl = v[2] / d;
    const T inward = select(axis, T(0.0), outward);
    return {select(axis, T(0.0), across / q), select(axis, T(0.0), (w[2] * cl - inward * sl) / d),
            inward * cl + w[2] * sl};
}

template <class T>
void from_polar(const LocalAxes<T> &x, T distance, T v[3])
{
    const T q = distance * x.c;
    v[0] = q * x.cl;
    v[1] = q * x.sl;
    v[2] = distance * x.s;
}

template <class T>
void from_polar_rates(const LocalAxes<T> &x, T distance, T lon_rate, T lat_rate, T distance_rate, T w[3])
{
    const T across = distance * x.c * lon_rate;
    const T up = distance * lat_rate;
    const T outward = distance_rate * x.c - up * x.s;
    w[0] = outward * x.cl - across * x.sl;
    w[1] = outward * x.sl + across * x.cl;
    w[2] = distance_rate * x.s + up * x.c;
}

} // namespace KL_SET

#endif
