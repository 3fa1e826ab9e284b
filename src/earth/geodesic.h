// Geodesics of the ellipsoid. C. F. F. Karney, Algorithms for geodesics, J. Geodesy 87, 43-55 (2013): series of order 6
// in the flattening, good to 15 nm for the Earth.
#ifndef KL_SRC_EARTH_GEODESIC_H
#define KL_SRC_EARTH_GEODESIC_H

#include "earth/ellipsoid.h"

#include <array>

// An ellipsoid with its sums in the third flattening n: coefficients of powers of eps.
struct GeodesicSeries {
    Ellipsoid e;
    double n;
    double ep2;                // second eccentricity squared
    std::array<double, 6> A3;  // of eps^0 to eps^5
    std::array<double, 15> C3; // of eps^l to eps^5 for l = 1 to 5
};
GeodesicSeries geodesic_series(const Ellipsoid &e);

// A direction by its sine and cosine.
struct Heading {
    double s, c;
};

struct GeodesicLine {
    double distance; // m
    Heading azimuth1, azimuth2;
    bool converged;
};

// Shortest path between two points of the surface; degrees, latitude -90 to 90, longitudes -360 to 360. Equal points:
// distance 0, azimuths 0.
GeodesicLine geodesic_between(const GeodesicSeries &g, double lat1, double lon1, double lat2, double lon2);

struct GeodesicEnd {
    double lat, lon; // deg, longitude as lon1 plus what the path adds
    Heading azimuth;
};

// The point at a distance (m, also backwards) along a path.
GeodesicEnd geodesic_from(const GeodesicSeries &g, double lat1, double lon1, double azimuth_deg, double distance);

#endif
