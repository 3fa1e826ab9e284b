// Eclipses of many satellites at one instant.
#ifndef KL_SRC_GEOMETRY_SHADOW_KERNELS_H
#define KL_SRC_GEOMETRY_SHADOW_KERNELS_H

#include "numbers/kernels.h"

#include <cstdint>

// What the satellites share: m.
struct ShadowScene {
    double a, f;       // of the ellipsoid
    double axes[3][3]; // from the frame of the positions to axes whose z is the Earth's
    double sun[3];     // in the latter
};

struct ShadowBlock {
    double state[kBlock], fraction[kBlock], depth[kBlock]; // of Shadow, eclipse.h
};

// Positions from the centre of the Earth; margins null: 0. What is refused or not ordinary is noted in `left`, a bit an
// element. `count` is at most kBlock.
KL_KERNEL(shadows, (const ShadowScene *scene, const double (*pos)[3], const double *margin, long count,
                    ShadowBlock *out, std::uint64_t *left));

#endif
