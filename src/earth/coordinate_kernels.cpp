// Kernels of coordinates.
#include "earth/coordinate_kernels.h"
#include "earth/geodetic.h"

namespace KL_KERNELS {

void geodetic_block(double axis, double flattening, bool rates, GeodeticBlock *block, long count)
{
    const Ellipsoid e = ellipsoid_of_constants(axis, flattening);
    for (long i = 0; i < count; i += kLanes) {
        Lanes x[6];
        for (int j = 0; j < 6; ++j)
            x[j] = load<Lanes>(block->in[j] + i);
        GeodeticDegrees<Lanes> out;
        cartesian_to_degrees(e, rates, x, x + 3, &out);
        const Lanes columns[6] = {out.lat, out.lon, out.h, out.lat_rate, out.lon_rate, out.h_rate};
        for (int j = 0; j < 6; ++j)
            store(columns[j], block->out[j] + i);
    }
}

} // namespace KL_KERNELS
