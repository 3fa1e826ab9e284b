// Kernels of coordinates that go straight from the caller's elements to the caller's elements. Each answers for
// ordinary ones: what is refused, what a warning is due for and what lies near a limit is noted in `left`, a bit an
// element, and not written. `count` is at most kBlock. Of position alone, velocities are null in and zero (or null)
// out.
#ifndef KL_SRC_EARTH_POLAR_KERNELS_H
#define KL_SRC_EARTH_POLAR_KERNELS_H

#include "numbers/kernels.h"

#include <cstdint>

// A place on the Earth: sines and cosines of latitude and longitude; m.
struct StationConstants {
    double s, c, sl, cl;
    double pos[3];
};

struct EllipsoidConstants {
    double a, f;
};

// Records of six: angles in degrees, a length in metres, their rates.
KL_KERNEL(radec_of_states, (bool rates, const double (*pos)[3], const double (*vel)[3], double (*out)[6], long count,
                            std::uint64_t *left));
KL_KERNEL(states_of_radec,
          (bool rates, const double (*in)[6], double (*pos)[3], double (*vel)[3], long count, std::uint64_t *left));
KL_KERNEL(topocentric_of_states, (const StationConstants *station, bool rates, const double (*pos)[3],
                                  const double (*vel)[3], double (*out)[6], long count, std::uint64_t *left));
KL_KERNEL(states_of_topocentric, (const StationConstants *station, bool rates, const double (*in)[6], double (*pos)[3],
                                  double (*vel)[3], long count, std::uint64_t *left));
KL_KERNEL(states_of_geodetic, (const EllipsoidConstants *ellipsoid, bool rates, const double (*in)[6], double (*pos)[3],
                               double (*vel)[3], long count, std::uint64_t *left));
KL_KERNEL(geodetic_of_states, (const EllipsoidConstants *ellipsoid, bool rates, const double (*pos)[3],
                               const double (*vel)[3], double (*out)[6], long count, std::uint64_t *left));

#endif
