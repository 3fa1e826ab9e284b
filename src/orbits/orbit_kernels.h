// Kernels of orbits, from the caller's elements to the caller's elements. Each answers for ordinary ones; the others
// are noted in `left`, a bit an element, and not written. `count` is at most kBlock.
#ifndef KL_SRC_ORBITS_ORBIT_KERNELS_H
#define KL_SRC_ORBITS_ORBIT_KERNELS_H

#include "numbers/kernels.h"

#include <cstdint>

// Ellipses, osculating; records of semi-major axis, m, eccentricity, inclination, node, perigee, mean anomaly, deg.
KL_KERNEL(states_of_ellipses,
          (double mu, const double (*in)[6], double (*pos)[3], double (*vel)[3], long count, std::uint64_t *left));
KL_KERNEL(ellipses_of_states, (double mu, const double (*pos)[3], const double (*vel)[3], double (*out)[6], long count,
                               std::uint64_t *left));

// Local frames and their derivatives; `acc` null: of two bodies.
KL_KERNEL(local_frames, (long kind, double mu, const double (*pos)[3], const double (*vel)[3], const double (*acc)[3],
                         double (*r)[9], double (*dr)[9], long count, std::uint64_t *left));

#endif
