// A line of sight and the Earth: where it meets the ellipsoid, a geodetic height, and where it comes nearest.
// Positions in Earth-fixed axes, or any whose z is the Earth's axis; m along the unit direction from the position.
#ifndef KL_SRC_GEOMETRY_RAYS_H
#define KL_SRC_GEOMETRY_RAYS_H

#include "earth/ellipsoid.h"
#include "numbers/numbers.h"

#include <cmath>
#include <limits>

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
Chord<T> chord_of(double a, double stretch, const T pos[3], const T dir[3])
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

constexpr double kNoPoint = std::numeric_limits<double>::quiet_NaN();

// The number of points, 0 to 2, and where: ascending. t beyond the number is kNoPoint.
long ray_meets_height(const Ellipsoid &ellipsoid, const Ray &ray, double height, double t[2]);

// The same for the ellipsoid with semi-axes a and a/stretch, from what a caller gives; -1 where make_ray is false.
long any_line_meets_axes(double a, double stretch, const double pos[3], const double dir[3], double t[2]);

// Squares of lengths whose products stay in the range, and a length below their roots.
constexpr double kLargeSquare = 0x1p800;
constexpr double kFar = 0x1p390; // m

// It with the common cases before a call: no component is asked whether it is finite, as the sums of all tell.
inline long line_meets_axes(double a, double stretch, const double pos[3], const double dir[3], double t[2])
{
    const double square = dot3(dir, dir);
    const Chord<double> chord = chord_of(a, stretch, pos, dir);
    const double length = sqrt(square);
    const double half = sqrt(chord.square) * length; // NaN where the ray passes by, or a number is none
    const double middle = chord.middle * length;
    if (square < kLargeSquare && square > 1.0 / kLargeSquare) {
        if (half > 0.0 && fabs(middle) < kFar) {
            t[0] = middle - half;
            t[1] = middle + half;
            return 2;
        }
        if (!(half >= 0.0) && dot3(pos, pos) < kLargeSquare) {
            t[0] = t[1] = kNoPoint;
            return 0;
        }
    }
    return any_line_meets_axes(a, stretch, pos, dir, t);
}

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
