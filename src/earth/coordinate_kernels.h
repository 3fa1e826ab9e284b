// Kernels of coordinates: blocks of elements.
#ifndef KL_SRC_EARTH_COORDINATE_KERNELS_H
#define KL_SRC_EARTH_COORDINATE_KERNELS_H

#include "numbers/kernels.h"

// Columns of positions and velocities, and of latitudes, longitudes, heights and their rates; m, m/s, deg, deg/s.
struct GeodeticBlock {
    double in[6][kBlock];
    double out[6][kBlock];
};

// `axis` m; `count` a multiple of kMostLanes.
KL_KERNEL(geodetic_block, (double axis, double flattening, bool rates, GeodeticBlock *block, long count));

#endif
