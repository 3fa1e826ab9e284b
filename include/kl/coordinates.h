/**
 * @file coordinates.h
 * Coordinates other than Cartesian ones: degrees, metres, seconds.
 */
#ifndef KL_COORDINATES_H
#define KL_COORDINATES_H

#include "kl/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** Above the ellipsoid. */
typedef struct kl_geodetic {
    double latitude, longitude, height;
    double latitude_rate, longitude_rate, height_rate;
} kl_geodetic;

/** An orbit. */
typedef struct kl_kepler {
    double semi_major_axis, eccentricity, inclination, raan, arg_perigee, mean_anomaly;
} kl_kepler;

/** A direction and a distance. */
typedef struct kl_radec {
    double ra, dec, distance;
    double ra_rate, dec_rate, distance_rate;
} kl_radec;

/** Seen from a place on the ground; the azimuth from the north by the east. */
typedef struct kl_topocentric {
    double azimuth, elevation, range;
    double azimuth_rate, elevation_rate, range_rate;
} kl_topocentric;

/** Where on its orbit a satellite is, and where the orbit lies. */
typedef struct kl_orbit_angle {
    double angle, rate, rate_of_rate;
    double node, node_rate, inclination;
} kl_orbit_angle;

#ifdef __cplusplus
}
#endif

#endif
