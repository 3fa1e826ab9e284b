// The universal transverse Mercator grid: L. Krueger's series in the third flattening to order 6, as C. F. F. Karney,
// J. Geodesy 85, 475-485 (2011), gives them: 5 nm within 6 degrees of the meridian.
#ifndef KL_SRC_EARTH_TRANSVERSE_MERCATOR_H
#define KL_SRC_EARTH_TRANSVERSE_MERCATOR_H

#include "earth/ellipsoid.h"

struct GridSeries {
    double e;        // first eccentricity
    double radius;   // m: of the rectified sphere, times the scale on the central meridian
    double alpha[6]; // geographic to grid
    double beta[6];  // back
};
GridSeries grid_series(const Ellipsoid &e);

struct GridPoint {
    double easting, northing; // m; northing of the southern half with its false northing
};

// The zone of a longitude of -360 to 360, 1 to 60. Without the exceptions around Norway and Spitsbergen.
long zone_of(double lon_deg);
// Degrees from the central meridian of a zone, -180 to 180.
double from_meridian(double lon_deg, long zone);

GridPoint geodetic_to_grid(const GridSeries &g, double lat_deg, double from_meridian_deg, bool north);

struct GridPlace {
    double lat, from_meridian; // deg
};
GridPlace grid_to_geodetic(const GridSeries &g, const GridPoint &point, bool north);

constexpr double kGridLatitude = 84.0; // deg, both ways
constexpr double kGridWidth = 6.0;     // deg, from the central meridian

#endif
