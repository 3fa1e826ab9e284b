// A line of sight and the Earth: where it meets the ellipsoid, a geodetic height, and where it comes nearest.
// Positions in Earth-fixed axes, or any whose z is the Earth's axis; m along the unit direction from the position.
#ifndef KL_SRC_GEOMETRY_RAYS_H
#define KL_SRC_GEOMETRY_RAYS_H

#include "earth/ellipsoid.h"

#include <cmath>

// Heights that can be asked for.
constexpr double kLowestHeight = -1e5; // m
constexpr double kHighestHeight = 1e9;

struct Ray {
    double pos[3]; // m
    double dir[3]; // unit vector
};

// False when the position or the direction is not finite, or the direction has no length.
bool make_ray(const double pos[3], const double dir[3], Ray *ray);

// The quadratic in the space stretched by a/b along z, where the ellipsoid is a sphere of radius a. At the middle of
// the chord, m, nothing cancels: m stands at right angles to the ray. In units of the direction's length.
template <class T>
struct Chord {
    T middle; // along the ray
    T square; // of half its length; negative where the ray passes by
};

template <class T>
Chord<T> chord_of(double a, double k, const T pos[3], const T dir[3])
{
    const double stretch = 1.0 / k;
    const T pz = pos[2] * stretch;
    const T wz = dir[2] * stretch;
    const T per_A = 1.0 / (dir[0] * dir[0] + dir[1] * dir[1] + wz * wz);
    const T middle = -(pos[0] * dir[0] + pos[1] * dir[1] + pz * wz) * per_A;
    const T mx = pos[0] + middle * dir[0];
    const T my = pos[1] + middle * dir[1];
    const T mz = pz + middle * wz;
    return {middle, (a * a - (mx * mx + my * my + mz * mz)) * per_A};
}

// The number of points, 0 to 2, and where: ascending. t beyond the number is NaN.
long ray_meets_height(const Ellipsoid &ellipsoid, const Ray &ray, double height, double t[2]);

// The same for the ellipsoid with semi-axes a and k a, from what a caller gives; -1 where make_ray is false.
long line_meets_axes(double a, double k, const double pos[3], const double dir[3], double t[2]);

// The lowest point of a ray.
struct LowestPoint {
    double t; // m along the ray
    double point[3];
    double north[2], east[2]; // latitude and longitude as sides of a right angle: across, along
    double height;            // m
};

// False for lines that come within 100 km of the centre of the Earth.
bool lowest_point(const Ellipsoid &ellipsoid, const Ray &ray, LowestPoint *out);

#endif
