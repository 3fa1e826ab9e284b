// How much of the Sun the Earth hides from a satellite.
#ifndef KL_SRC_GEOMETRY_ECLIPSE_H
#define KL_SRC_GEOMETRY_ECLIPSE_H

#include "earth/ellipsoid.h"

constexpr double kFarthestSatellite = 1e10; // m from the centre of the Earth
constexpr double kNearestSun = 1e11;        // m
constexpr double kLowestMargin = -1e4;      // m
constexpr double kHighestMargin = 2e5;

struct Shadow {
    long state;      // KL_SUNLIGHT, ...
    double fraction; // visible part of the Sun's disc
    double depth;    // from the Sun's centre to the limb of the Earth, in radii of the Sun; negative behind the limb
};

// Positions from the centre of the Earth, m, in axes whose z is the Earth's; `margin` raises the ellipsoid. The bounds
// above are the caller's to check, and that the position is not inside.
bool is_inside(const Ellipsoid &ellipsoid, const double pos[3], double margin);
Shadow find_shadow(const Ellipsoid &ellipsoid, const double pos[3], const double sun[3], double margin);

#endif
