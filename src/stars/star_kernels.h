// Places of many stars at one instant.
#ifndef KL_SRC_STARS_STAR_KERNELS_H
#define KL_SRC_STARS_STAR_KERNELS_H

#include "numbers/kernels.h"
#include "stars/place.h"

#include <cstdint>

// What the stars share.
struct StarScene {
    Sight sight;
    double axes[3][3]; // from the mean equator of J2000 to the frame of the places
};

// Right ascension and declination, deg. Stars out of range are noted in `left`, a bit a star. `count` is at most
// kBlock.
KL_KERNEL(star_places,
          (const StarScene *scene, const kl_star *star, long count, double *ra, double *dec, std::uint64_t *left));

#endif
