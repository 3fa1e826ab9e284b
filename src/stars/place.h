// The place of a star: space motion, parallax, deflection and aberration.
#ifndef KL_SRC_STARS_PLACE_H
#define KL_SRC_STARS_PLACE_H

#include "kl/stars.h"

constexpr long kEveryCorrection = KL_STAR_PARALLAX | KL_STAR_ABERRATION | KL_STAR_DEFLECTION;
constexpr double KL_TRUE_AU = 149597870700.0; // m, IAU 2012 resolution B2

// Is a star one that a place can be computed for?
bool star_in_range(const kl_star &star);

struct Observer {
    double barycentric[3];  // m, mean equator of J2000
    double velocity[3];     // m/s, from the barycentre
    double heliocentric[3]; // m
};

// What all stars share at one instant.
struct Sight {
    double tdb; // MJD2000
    bool parallax, aberration, deflection;
    bool light_time;        // dates count from the barycentre
    double barycentric[3];  // AU
    double velocity[3];     // of light
    double slowness;        // sqrt(1 - v^2)
    double from_sun[3];     // unit vector
    double potential;       // 2 G M / (c^2 r) of the Sun at the observer
    double nearest_to_line; // bound of the deflection beside the Sun
};

// False when the observer is not finite, not slower than light, or at the centre of the Sun.
bool prepare_sight(const Observer &observer, double tdb, long corrections, Sight *sight);
// Only the motion in space, seen from the barycentre.
Sight space_motion_only(double tdb);

// Unit vector, mean equator of J2000.
void place_of(const Sight &sight, const kl_star &star, double place[3]);

#endif
